// SPDX-License-Identifier: BSD-3-Clause
#include "player.h"
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>

#include <algorithm>
#include <vector>

namespace ovl::fuzz {
namespace {

constexpr int kHome = 100; // the axes run from 0 to here, so that the mouse meets what is shown

class ProfilePlayer : public Player {
public:
    using Player::Player;

    void make(Deal& deal) override
    {
        view.reset();
        shapes.clear();
        stale = false;
        drawnWithoutLines = false;
        view = std::make_unique<ProfileView>(rig.widget(), deal.between(1, 5));
        view->setLeftRange(0, kHome);
        view->setBottomRange(0, kHome);
        view->setTopRange(0, kHome);
        view->setRightRange(0, kHome);
        view->resetView();
    }

    void call(Deal& deal) override
    {
        static constexpr void (ProfilePlayer::*calls[])(Deal&)
            = {&ProfilePlayer::setValues, &ProfilePlayer::setValues, &ProfilePlayer::setCells,
                &ProfilePlayer::drawPlots, &ProfilePlayer::setPlot, &ProfilePlayer::setPlot,
                &ProfilePlayer::setTooltips, &ProfilePlayer::setAxis, &ProfilePlayer::setRange,
                &ProfilePlayer::setSwitch, &ProfilePlayer::addShape, &ProfilePlayer::addShape,
                &ProfilePlayer::addShape, &ProfilePlayer::updateShape, &ProfilePlayer::removeShape,
                &ProfilePlayer::drawShapes, &ProfilePlayer::drawShapes,
                &ProfilePlayer::redrawShapes, &ProfilePlayer::changeShape, &ProfilePlayer::ask};
        callOneOf(*this, calls, deal);
    }

private:
    /** What the host remembers of a shape that it has given to the view. */
    struct Known {
        int identifier;
        QString title;
    };

    // Curves

    double coordinate(Deal& deal) { return deal.rarely(6) ? deal.number() : deal.below(kHome + 1); }
    int column(Deal& deal) { return deal.below(view->numberOfCols()); }

    void setValues(Deal& deal)
    {
        const int rows = deal.rarely(16) ? deal.below(2000) : deal.below(24);
        view->setNumberOfValues(rows);
        const bool wild = deal.rarely(3);
        const int step = deal.between(1, 9);
        for (int i = 0; i < view->numberOfCols(); ++i)
            for (int row = 0; row < rows; ++row)
                view->setValue(i, row, wild ? coordinate(deal) : (i + 1) * row * step % kHome);
        if (deal.flag())
            view->drawPlots();
    }

    void setCells(Deal& deal)
    {
        if (view->numberOfValues() == 0)
            return;
        for (int count = deal.between(1, 4); count > 0; --count) {
            const int row = deal.below(view->numberOfValues());
            if (deal.rarely(5))
                view->setNanValue(column(deal), row);
            else
                view->setValue(column(deal), row, deal.number());
        }
        view->value(deal.integer(), 0); // a column that is not there is answered with 0
    }

    void drawPlots(Deal&) { view->drawPlots(); }

    void setPlot(Deal& deal)
    {
        const int plot = column(deal);
        switch (deal.below(6)) {
        case 0:
            return view->setPlotTitle(plot, deal.text());
        case 1:
            return view->setPlotFormat(plot, deal.format());
        case 2:
            return view->setPlotVisibily(plot, deal.flag());
        case 3:
            return view->setColor(plot, deal.color());
        default:
            return view->setPlotCorner(plot, deal.rarely(8) ? deal.integer() : deal.below(4));
        }
    }

    void setTooltips(Deal& deal)
    {
        const double answer = deal.number();
        std::function<double(int, double)> function;
        if (!deal.rarely(4))
            function = [answer](int row, double value) { return row * answer + value; };
        if (deal.flag())
            view->xCustomTooltip(function);
        else
            view->yCustomTooltip(function);
    }

    // The frame

    void setAxis(Deal& deal)
    {
        using SetTitle = void (ProfileView::*)(const QString&);
        static constexpr SetTitle titles[] = {&ProfileView::setTitle, &ProfileView::setLeftTitle,
            &ProfileView::setBottomTitle, &ProfileView::setRightTitle, &ProfileView::setTopTitle};
        using SetColor = void (ProfileView::*)(const QColor&);
        static constexpr SetColor colors[]
            = {&ProfileView::setLeftColorTitle, &ProfileView::setBottomColorTitle,
                &ProfileView::setRightColorTitle, &ProfileView::setTopColorTitle};
        using Show = void (ProfileView::*)(bool);
        static constexpr Show shows[]
            = {&ProfileView::setleftAxisVisibility, &ProfileView::setBottomAxisVisibility,
                &ProfileView::setRightAxisVisibility, &ProfileView::setTopAxisVisibility};
        const auto axis = static_cast<std::size_t>(deal.below(4));
        switch (deal.below(3)) {
        case 0:
            return (*view.*titles[axis + (deal.flag() ? 1U : 0U)])(deal.text());
        case 1:
            return (*view.*colors[axis])(deal.color());
        default:
            return (*view.*shows[axis])(deal.flag());
        }
    }

    void setRange(Deal& deal)
    {
        using SetHome = void (ProfileView::*)(int, int);
        static constexpr SetHome homes[] = {&ProfileView::setLeftRange,
            &ProfileView::setBottomRange, &ProfileView::setRightRange, &ProfileView::setTopRange};
        if (deal.rarely(4)) {
            view->range(deal.below(4)) = deal.range();
            return;
        }
        const SetHome set = homes[static_cast<std::size_t>(deal.below(4))];
        if (deal.flag())
            (*view.*set)(0, kHome);
        else
            (*view.*set)(deal.integer(), deal.integer());
        if (deal.flag())
            view->resetView();
    }

    void setSwitch(Deal& deal)
    {
        using Set = void (ProfileView::*)(bool);
        static constexpr Set switches[] = {&ProfileView::enableHorizontalZoom,
            &ProfileView::enabledLeftVerticalZoom, &ProfileView::enabledRightVerticalZoom,
            &ProfileView::setCrosshairCursor, &ProfileView::setDirty};
        (*view.*switches[static_cast<std::size_t>(deal.below(std::size(switches)))])(deal.flag());
    }

    // Shapes

    Point point(Deal& deal)
    {
        Point point(coordinate(deal), coordinate(deal));
        if (deal.rarely(12))
            point.setVisible(false);
        if (deal.rarely(12))
            point.allowDragOnX(false);
        return point;
    }

    void addLines(Shape& shape, Deal& deal)
    {
        if (deal.flag()) {
            const double left = deal.below(kHome);
            const double bottom = deal.below(kHome);
            const double right = left + deal.between(1, kHome);
            const double top = bottom + deal.between(1, kHome);
            shape.addLine({left, bottom}, {right, bottom});
            shape.addLine({right, bottom}, {right, top});
            shape.addLine({right, top}, {left, top});
            shape.addLine({left, top}, {left, bottom});
        } else {
            for (int lines = deal.below(4); lines > 0; --lines)
                shape.addLine(point(deal), point(deal));
        }
    }

    /** The points of the view's own shape follow the mouse, as a host's usually do. */
    void translate(int identifier, double dx, double dy)
    {
        Shape* shape = view->shape(identifier);
        if (!shape)
            return;
        const Point step(dx, dy);
        for (int i = 0; i < shape->numberOfLines(); ++i) {
            *shape->line(i)->p1() += step;
            *shape->line(i)->p2() += step;
        }
        for (int i = 0; i < shape->numberOfHandles(); ++i)
            *shape->handle(i) += step;
    }

    /** A resizing host may also come to other points than the shape had. */
    void rebuild(int identifier, const Point& handle, double distance)
    {
        Shape* shape = view->shape(identifier);
        if (!shape)
            return;
        shape->clear();
        shape->addLine(handle, {handle.x() + distance, handle.y() - distance});
    }

    void setCallbacks(Shape& shape, Deal& deal)
    {
        const int identifier = shape.identifier();
        shape.setXTranslationCallback([=](double dx) { translate(identifier, dx, 0.0); });
        shape.setYTranslationCallback([=](double dy) { translate(identifier, 0.0, dy); });
        const auto resize
            = [=](const Point& handle, double distance) { rebuild(identifier, handle, distance); };
        if (deal.flag())
            shape.setXResizeCallback(resize);
        if (deal.flag())
            shape.setYResizeCallback(resize);
        shape.setOnMousePressCallback([this] { view->setDirty(false); });
        if (deal.flag())
            shape.setOnMouseReleaseCallback([=] { view->shape(identifier); });
        if (deal.rarely(4)) {
            const bool inside = deal.flag();
            shape.setInsidePolygonCallback([inside](const Point&) { return inside; });
        }
        if (deal.flag()) {
            const QString text = deal.text();
            shape.setShapeTooltipCallback([text](const Point&) { return text; });
        }
    }

    void setLook(Shape& shape, Deal& deal)
    {
        using Set = void (Shape::*)(bool);
        static constexpr Set switches[] = {&Shape::setHasPlot, &Shape::setHandleVisibility,
            &Shape::setVisible, &Shape::setLegendVisible, &Shape::setTooltipsVisibility,
            &Shape::setHandleTooltipVisibility};
        if (deal.rarely(3))
            (shape.*switches[static_cast<std::size_t>(deal.below(std::size(switches)))])(false);
        if (deal.rarely(3)) {
            shape.setColor(deal.color());
            shape.setHandleColor(deal.color());
            shape.setHandleSize(deal.between(-1, 40));
            shape.setLineType(static_cast<LineType>(deal.between(-1, 6)));
            shape.setFormat(deal.format());
            shape.setTolerance(deal.number());
        }
    }

    Shape shape(Deal& deal)
    {
        Shape shape;
        shape.setIdentifier(deal.between(-1, 5));
        shape.setTitle(deal.text());
        shape.setPriority(deal.rarely(8) ? deal.integer() : deal.below(3));
        const unsigned dragging = deal.byte();
        shape.setInteractive((dragging & 3U) != 0U);
        shape.setCanDragAlongX((dragging & 12U) != 0U);
        shape.setCanDragAlongY((dragging & 48U) != 0U);
        addLines(shape, deal);
        setLook(shape, deal);
        setCallbacks(shape, deal);
        return shape;
    }

    void addShape(Deal& deal)
    {
        if (shapes.size() > 12)
            return;
        const Shape added = shape(deal);
        view->addShape(added);
        shapes.push_back({added.identifier(), added.title()});
        stale = true;
        if (deal.flag())
            drawShapes(deal);
    }

    template <class Matches> void remember(const Shape& updated, Matches matches)
    {
        const auto found = std::find_if(shapes.begin(), shapes.end(), matches);
        if (found != shapes.end())
            *found = {updated.identifier(), updated.title()};
    }

    static auto isCalled(const QString& title)
    {
        return [title](const Known& known) { return known.title == title; };
    }

    static auto hasIdentifier(int identifier)
    {
        return [identifier](const Known& known) { return known.identifier == identifier; };
    }

    QString knownTitle(Deal& deal) const
    {
        return shapes.empty() || deal.rarely(8)
            ? deal.text()
            : shapes[static_cast<std::size_t>(deal.below(int(shapes.size())))].title;
    }

    void updateShape(Deal& deal)
    {
        const int way = deal.below(3);
        const QString title = knownTitle(deal);
        const Shape updated = shape(deal);
        const int identifier = deal.between(-1, 5);
        if (way == 0) {
            view->updateShape(updated);
            remember(updated, hasIdentifier(updated.identifier()));
        } else if (way == 1) {
            view->updateShape(identifier, updated);
            remember(updated, hasIdentifier(identifier));
        } else {
            view->updateShape(title, updated);
            remember(updated, isCalled(title));
        }
    }

    void removeShape(Deal& deal)
    {
        const int way = deal.below(5);
        if (way == 0) {
            view->clearShape();
            shapes.clear();
            stale = true;
        } else if (way < 3) {
            const int identifier = deal.between(-1, 5);
            view->removeShape(identifier);
            forget(hasIdentifier(identifier));
        } else {
            const QString title = knownTitle(deal);
            // Several of one title would leave shapes that cannot be drawn: the host's fault.
            if (std::count_if(shapes.begin(), shapes.end(), isCalled(title)) > 1)
                return;
            view->removeShape(title);
            forget(isCalled(title));
        }
    }

    template <class Matches> void forget(Matches matches)
    {
        const auto found = std::find_if(shapes.begin(), shapes.end(), matches);
        if (found == shapes.end())
            return;
        shapes.erase(found);
        stale = true;
    }

    void drawShapes(Deal&)
    {
        view->drawShapes();
        stale = false;
        drawnWithoutLines = false;
        for (const Known& known : shapes)
            for (const Shape* drawn : {view->shape(known.identifier), view->shape(known.title)})
                drawnWithoutLines = drawnWithoutLines || !drawn || drawn->numberOfLines() == 0;
    }

    void redrawShapes(Deal&)
    {
        // Of several shapes of one name only the first can be looked at: then better not.
        const bool unseen = std::any_of(shapes.begin(), shapes.end(), [this](const Known& known) {
            return std::count_if(shapes.begin(), shapes.end(), isCalled(known.title)) > 1
                && std::count_if(shapes.begin(), shapes.end(), hasIdentifier(known.identifier)) > 1;
        });
        if (!stale && !drawnWithoutLines && !unseen)
            view->redrawShapes();
    }

    /** What a host changes on the view's own shape. */
    void changeShape(Deal& deal)
    {
        Shape* shape
            = deal.flag() ? view->shape(deal.between(-1, 5)) : view->shape(knownTitle(deal));
        if (!shape)
            return;
        switch (deal.below(5)) {
        case 0:
            return shape->setVisible(deal.flag());
        case 1:
            return addLines(*shape, deal);
        case 2:
            return shape->clear();
        case 3:
            if (shape->numberOfHandles() > 0)
                *shape->handle(deal.below(shape->numberOfHandles())) = point(deal);
            return;
        default:
            shape->closeToLine(point(deal));
            shape->insidePolygon(point(deal));
        }
    }

    void ask(Deal& deal)
    {
        const int plot = column(deal);
        view->isDirty();
        view->plotTitle(plot);
        view->plotFormat(plot);
        view->plotVisibility(plot);
        view->plotCorner(plot);
        view->color(plot);
        view->title();
        for (const auto title : {&ProfileView::leftTitle, &ProfileView::bottomTitle,
                 &ProfileView::rightTitle, &ProfileView::topTitle})
            (*view.*title)();
        for (const auto color : {&ProfileView::leftColorTitle, &ProfileView::bottomColorTitle,
                 &ProfileView::rightColorTitle, &ProfileView::topColorTitle})
            (*view.*color)();
        view->updateDepthPriority();
    }

    std::vector<Known> shapes;
    bool stale = false; // the chart shows other shapes than the view holds
    bool drawnWithoutLines = false;
    std::unique_ptr<ProfileView> view;
};

} // namespace

std::unique_ptr<Player> makePlayer(Rig& rig) { return std::make_unique<ProfilePlayer>(rig); }

} // namespace ovl::fuzz

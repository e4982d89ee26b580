// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: every difference between the framework's versions 8.1 and 9.x
// lives here, and nowhere else is a version asked for.
#ifndef OVL_VISUALIZATION_VTKCOMPAT_H
#define OVL_VISUALIZATION_VTKCOMPAT_H

#include <vtkVersionMacros.h>

#if VTK_MAJOR_VERSION >= 9
#include <QVTKOpenGLNativeWidget.h>
#else
#include <QVTKOpenGLWidget.h>
#endif

#include <vtkCellArray.h>
#include <vtkContextMapper2D.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkPlotBar.h>
#include <vtkPlotPoints.h>
#include <vtkPoints2D.h>
#include <vtkRect.h>
#include <vtkSmartPointer.h>
#include <vtkVector.h>

#include <new>
#include <utility>

namespace ovl::compat {

#if VTK_MAJOR_VERSION >= 9
// QVTKOpenGLWidget is no QOpenGLWidget any more; the native widget is. Drop the other branch
// with 8.x.
using HostWidget = QVTKOpenGLNativeWidget;
inline vtkRenderWindow* renderWindow(HostWidget* widget) { return widget->renderWindow(); }
#else
using HostWidget = QVTKOpenGLWidget;
inline vtkRenderWindow* renderWindow(HostWidget* widget) { return widget->GetRenderWindow(); }
#endif

/** Whether a prop pick renders the scene with the window's depths, which then can be read. */
#if VTK_MAJOR_VERSION >= 9
constexpr bool kPicksByRendering = true;
#else
constexpr bool kPicksByRendering = false; // casts no picture; drop with 8.x
#endif

// One cell that lists any number of points, written through a plain pointer: InsertCellPoint costs
// ten times as much. begin...() gives room for `capacity` ids behind the array's last cell, which
// must be none; grow...() at least doubles the room and keeps what was written; the cell has no
// point before end...() tells how many. The layout differs. Drop the other branch with 8.x.
#if VTK_MAJOR_VERSION >= 9
using StoredId = vtkCellArray::ArrayType64::ValueType;

inline StoredId* growOnlyCell(vtkCellArray* cells, vtkIdType capacity)
{
    vtkCellArray::ArrayType64* ids = cells->GetConnectivityArray64();
    if (ids->GetSize() < capacity)
        ids->Resize(capacity); // doubles an array that has already got room
    return ids->GetPointer(0);
}

inline StoredId* beginOnlyCell(vtkCellArray* cells, int capacity)
{
    if (!cells->IsStorage64Bit())
        cells->Use64BitStorage(); // lets go of the memory, even where nothing changes
    cells->InsertNextCell(capacity);
    cells->UpdateCellCount(0); // so that a repaint now finds no unwritten id
    return growOnlyCell(cells, capacity);
}

inline void endOnlyCell(vtkCellArray* cells, int count)
{
    cells->GetConnectivityArray64()->WritePointer(0, count);
    cells->UpdateCellCount(count);
}

inline vtkIdType onlyCellCapacity(vtkCellArray* cells)
{
    return cells->GetConnectivityArray64()->GetSize();
}
#else
using StoredId = vtkIdType;

inline StoredId* growOnlyCell(vtkCellArray* cells, vtkIdType capacity)
{
    vtkIdTypeArray* ids = cells->GetData(); // the count, then the ids
    if (ids->GetSize() < capacity + 1)
        ids->Resize(capacity + 1);
    return ids->GetPointer(1);
}

inline StoredId* beginOnlyCell(vtkCellArray* cells, int capacity)
{
    cells->InsertNextCell(0);
    return growOnlyCell(cells, capacity);
}

inline void endOnlyCell(vtkCellArray* cells, int count)
{
    *cells->GetData()->WritePointer(0, count + 1) = count;
}

inline vtkIdType onlyCellCapacity(vtkCellArray* cells) { return cells->GetData()->GetSize() - 1; }
#endif

/** Whether a mapper's buffers are built in steps that can be replaced, as SteadyMapper does. */
#if VTK_MAJOR_VERSION >= 9
#define OVL_MAPPERS_BUILD_BUFFERS 1
#else
#define OVL_MAPPERS_BUILD_BUFFERS 0 // never tried there; drop with 8.x
#endif

/** The host's widget as what it must really be. Not checked: any other widget gives null. */
inline HostWidget* hostWidget(QOpenGLWidget* widget)
{
    return static_cast<HostWidget*>(HostWidget::staticMetaObject.cast(widget));
}

/**
 * A style in which the second press of a double click is a press like any other.
 *
 * Newer widgets send it as an event of its own, and the styles ignore that: a drag that begins with
 * a double click would do nothing. Older ones send a second press. Drop the condition with 8.x.
 */
template <class Style> class DoubleClickAsPress : public Style {
#if VTK_MAJOR_VERSION >= 9
public:
    void OnLeftButtonDoubleClick() override { this->OnLeftButtonDown(); }
    void OnMiddleButtonDoubleClick() override { this->OnMiddleButtonDown(); }
    void OnRightButtonDoubleClick() override { this->OnRightButtonDown(); }
#endif

protected:
    DoubleClickAsPress() = default;
    ~DoubleClickAsPress() override = default;
};

/**
 * From 9 on plots and axes are picked themselves, so that a chart would lose the mouse to its own
 * points and get presses beside its plot area. Before, they never were.
 */
inline constexpr bool kPlotsAndAxesCanBePicked = VTK_MAJOR_VERSION >= 9;

/** Opens the points that a plot draws and hits, which are in plot space in every version. */
struct PlotPointsAccess : vtkPlotPoints {
    static vtkPoints2D* points(vtkPlotPoints* plot) { return plot->*(&PlotPointsAccess::Points); }
    /** Newer each time the plot has taken its points over from its table; 0 before the first. */
    static vtkMTimeType buildTime(vtkPlotPoints* plot)
    {
        return (plot->*(&PlotPointsAccess::BuildTime)).GetMTime();
    }
};

/** Opens what a plot takes its columns from. */
struct PlotMapperAccess : vtkPlot {
    static vtkSmartPointer<vtkContextMapper2D>& mapper(vtkPlot* plot)
    {
        return plot->*(&PlotMapperAccess::Data);
    }
};

/** Puts what `from` holds in the place of what `to` holds. Nothing is counted up and down again. */
template <class T> void handOver(vtkSmartPointer<T>& from, vtkSmartPointer<T>& to)
{
    using Pointer = vtkSmartPointer<T>;
    const Pointer old(std::move(to));
    to.~Pointer(); // NOLINT(bugprone-use-after-move): there is no assignment that moves
    new (&to) Pointer(std::move(from));
    from = nullptr; // for 8.1, which only copies
}

#if VTK_MAJOR_VERSION >= 9
/** Before 9 the plots answered where the point is in plot space; now these answer in data units. */
inline void toPlotSpace(vtkPlot* plot, vtkIdType row, vtkVector2f& position)
{
    if (auto* points = vtkPlotPoints::SafeDownCast(plot)) {
        // Exactly as it is drawn: calculated back from a float, a large shift would eat digits.
        double exact[2];
        PlotPointsAccess::points(points)->GetPoint(row, exact);
        position.Set(static_cast<float>(exact[0]), static_cast<float>(exact[1]));
    } else if (plot->IsA("vtkPlotBar") || plot->IsA("vtkPlotArea")) {
        const vtkRectd shiftScale = plot->GetShiftScale();
        position.Set(
            static_cast<float>(position.GetX() * shiftScale.GetWidth() + shiftScale.GetX()),
            static_cast<float>(position.GetY() * shiftScale.GetHeight() + shiftScale.GetY()));
    }
}
#endif

/**
 * The row of the plot's point nearest to `at`, both in plot space, or -1. Only bars write
 * `segment`.
 */
inline vtkIdType nearestPoint(vtkPlot* plot, const vtkVector2f& at, const vtkVector2f& tolerance,
    vtkVector2f& position, vtkIdType& segment)
{
#if VTK_MAJOR_VERSION >= 9
    const vtkIdType row = plot->GetNearestPoint(at, tolerance, &position, &segment);
    if (row >= 0)
        toPlotSpace(plot, row, position);
    return row;
#else
    if (auto* bar = vtkPlotBar::SafeDownCast(plot))
        return bar->GetNearestPoint(at, tolerance, &position, &segment);
    return plot->GetNearestPoint(at, tolerance, &position);
#endif
}

} // namespace ovl::compat

#endif

// SPDX-License-Identifier: BSD-3-Clause
#include "player.h"
#include <visualization/imageview.h>

#include <vector>

namespace ovl::fuzz {
namespace {

/** Bytes of one sample; any unknown code means the smallest one. */
std::size_t sampleSize(int sampleType)
{
    constexpr std::size_t sizes[] = {1, 2, 2, 4, 4, 8};
    return sampleType > 0 && sampleType < 6 ? sizes[sampleType] : 1;
}

std::size_t atLeastZero(int value) { return value > 0 ? static_cast<std::size_t>(value) : 0; }

class ImagePlayer : public Player {
public:
    using Player::Player;

    void make(Deal&) override
    {
        view.reset();
        view = std::make_unique<ImageView>(rig.widget());
    }

    void call(Deal& deal) override
    {
        static constexpr void (ImagePlayer::*calls[])(Deal&)
            = {&ImagePlayer::draw, &ImagePlayer::draw, &ImagePlayer::draw, &ImagePlayer::redraw,
                &ImagePlayer::drawNothing, &ImagePlayer::resetCamera, &ImagePlayer::setCorrection,
                &ImagePlayer::setCorrection, &ImagePlayer::enableTable, &ImagePlayer::setTable,
                &ImagePlayer::setTable, &ImagePlayer::ask};
        callOneOf(*this, calls, deal);
    }

private:
    void draw(Deal& deal)
    {
        const bool large = deal.rarely(12); // worth several workers
        const int width = large ? deal.between(1, 400) : deal.between(-2, 13);
        const int height = large ? deal.between(1, 300) : deal.between(-2, 13);
        const BufferDescriptor descriptor {
            deal.rarely(8) ? deal.between(-1, 9) : deal.between(1, 4),
            deal.rarely(16) ? deal.integer() : deal.between(0, 5)};
        const std::size_t samples
            = atLeastZero(width) * atLeastZero(height) * atLeastZero(descriptor.components);
        // Not a byte more than the frame has, so that reading beyond it is seen.
        std::vector<unsigned char> next(samples * sampleSize(descriptor.sampleType));
        unsigned value = deal.byte();
        const unsigned step = deal.byte();
        for (unsigned char& byte : next)
            byte = static_cast<unsigned char>(value += step);
        view->drawScene(next.empty() ? spare : next.data(), width, height, descriptor);
        frame.swap(next); // the old one goes only now
    }

    void drawNothing(Deal& deal)
    {
        view->drawScene(nullptr, deal.integer(), deal.integer(), {deal.integer(), deal.integer()});
    }

    void redraw(Deal&) { view->redraw(); }
    void resetCamera(Deal&) { view->resetCamera(); }

    void setCorrection(Deal& deal)
    {
        switch (deal.below(4)) {
        case 0:
            return view->setShift(deal.flag() ? deal.below(17) : deal.integer());
        case 1:
            return view->forceColor(deal.flag());
        case 2:
            return view->setDirty(deal.flag());
        default:
            return view->setMask(deal.below(8), deal.integer());
        }
    }

    void enableTable(Deal& deal) { view->enableLookupTable(deal.flag()); }

    void setTable(Deal& deal)
    {
        switch (deal.below(5)) {
        case 0:
            return view->setLookupTableRange(deal.range());
        case 1:
            return view->setAboveRangeColor(deal.color());
        case 2:
            return view->setBelowRangeColor(deal.color());
        case 3:
            return view->enableAboveRangeColor(deal.flag());
        default:
            return view->enableBelowRangeColor(deal.flag());
        }
    }

    void ask(Deal& deal)
    {
        view->isDirty();
        view->shift();
        view->mask(deal.below(12));
        view->isColorForced();
        view->lookupTableEnabled();
        view->lookupTableRange();
        view->aboveRangeColor();
        view->aboveRangeColorEnabled();
        view->belowRangeColor();
        view->belowRangeColorEnabled();
    }

    unsigned char spare[1] = {}; // a frame without pixels has an address all the same
    std::vector<unsigned char> frame; // the host's; outlives the view
    std::unique_ptr<ImageView> view;
};

} // namespace

std::unique_ptr<Player> makePlayer(Rig& rig) { return std::make_unique<ImagePlayer>(rig); }

} // namespace ovl::fuzz

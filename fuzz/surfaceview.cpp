// SPDX-License-Identifier: BSD-3-Clause
#include "spaceplayer.h"
#include <visualization/surfaceview.h>

namespace ovl::fuzz {
namespace {

class SurfacePlayer : public SpacePlayer<SurfaceView> {
public:
    using SpacePlayer::SpacePlayer;

private:
    void setOwn(Deal& deal) override
    {
        view->setRepresentation(static_cast<Representation>(deal.between(-1, 4)));
    }
};

} // namespace

std::unique_ptr<Player> makePlayer(Rig& rig) { return std::make_unique<SurfacePlayer>(rig); }

} // namespace ovl::fuzz

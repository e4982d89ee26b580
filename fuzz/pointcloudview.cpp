// SPDX-License-Identifier: BSD-3-Clause
#include "spaceplayer.h"
#include <visualization/pointcloudview.h>

namespace ovl::fuzz {

std::unique_ptr<Player> makePlayer(Rig& rig)
{
    return std::make_unique<SpacePlayer<PointCloudView>>(rig);
}

} // namespace ovl::fuzz

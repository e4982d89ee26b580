// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/spaceaxes.h>

#include <gtest/gtest.h>
#include <type_traits>

using ovl::Host;
using ovl::toHost;
using ovl::toWorld;
using ovl::World;

namespace {

TEST(SpaceAxes, WorldXCarriesTheHostsYAndWorldYTheHostsX)
{
    const World<int> world = toWorld(Host<int> {1, 2, 3});
    EXPECT_EQ(world.x, 2);
    EXPECT_EQ(world.y, 1);
    EXPECT_EQ(world.z, 3);
}

TEST(SpaceAxes, HostXIsTakenFromWorldYAndHostYFromWorldX)
{
    const Host<int> host = toHost(World<int> {1, 2, 3});
    EXPECT_EQ(host.x, 2);
    EXPECT_EQ(host.y, 1);
    EXPECT_EQ(host.z, 3);
}

TEST(SpaceAxes, NeitherTripleCanBeTakenForTheOther)
{
    EXPECT_FALSE((std::is_convertible_v<Host<double>, World<double>>));
    EXPECT_FALSE((std::is_convertible_v<World<double>, Host<double>>));
}

} // namespace

// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_SPACEAXES_H
#define OVL_VISUALIZATION_SPACEAXES_H

namespace ovl {

/** A triple along the axes that the interface speaks of: x, y and z as the host means them. */
template <class Value> struct Host {
    Value x;
    Value y;
    Value z;
};

/** A triple along the axes of the rendered scene. */
template <class Value> struct World {
    Value x;
    Value y;
    Value z;
};

// The scene lies on its side: world X carries the host's y and world Y the host's x. These two are
// the only places that exchange them; the types keep everything else from doing it by accident.

template <class Value> constexpr World<Value> toWorld(const Host<Value>& host)
{
    return {host.y, host.x, host.z};
}

template <class Value> constexpr Host<Value> toHost(const World<Value>& world)
{
    return {world.y, world.x, world.z};
}

} // namespace ovl

#endif

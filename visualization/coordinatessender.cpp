// SPDX-License-Identifier: BSD-3-Clause
#include "coordinatessender.h"

namespace ovl {

// Made while the library loads, so that it is there before any view and needs no check.
std::unique_ptr<CoordinatesSender> CoordinatesSender::coordinates_sender(new CoordinatesSender);

CoordinatesSender::CoordinatesSender() = default;

CoordinatesSender::~CoordinatesSender() = default;

CoordinatesSender* CoordinatesSender::instance() { return coordinates_sender.get(); }

void CoordinatesSender::sendCoordinate(int x, int y)
{
    Q_EMIT instance()->signal_sendCoordinates(x, y);
}

void CoordinatesSender::sendSpaceCoordinate(double x, double y, double z)
{
    Q_EMIT instance()->signal_sendSpaceCoordinates(x, y, z);
}

void CoordinatesSender::clearCoordinates() { Q_EMIT instance()->signal_clearCoordinates(); }

} // namespace ovl

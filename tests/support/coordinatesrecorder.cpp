// SPDX-License-Identifier: BSD-3-Clause
#include "coordinatesrecorder.h"

#include <visualization/coordinatessender.h>

namespace ovl::test {

CoordinatesRecorder::CoordinatesRecorder()
{
    CoordinatesSender* sender = CoordinatesSender::instance();
    QObject::connect(
        sender, &CoordinatesSender::signal_clearCoordinates, &receiver, [this] { ++cleared; });
    QObject::connect(sender, &CoordinatesSender::signal_sendCoordinates, &receiver,
        [this](int x, int y) { pixels.emplace_back(x, y); });
    QObject::connect(sender, &CoordinatesSender::signal_sendSpaceCoordinates, &receiver,
        [this](double x, double y, double z) {
            positions.push_back({x, y, z});
        });
}

void CoordinatesRecorder::clear()
{
    pixels.clear();
    positions.clear();
    cleared = 0;
}

} // namespace ovl::test

// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_COORDINATESRECORDER_H
#define OVL_TESTS_SUPPORT_COORDINATESRECORDER_H

#include <QObject>

#include <array>
#include <utility>
#include <vector>

namespace ovl::test {

/** Keeps what CoordinatesSender has said since the recorder was made, or since clear(). */
class CoordinatesRecorder {
public:
    CoordinatesRecorder();

    void clear();

    std::vector<std::pair<int, int>> pixels;
    std::vector<std::array<double, 3>> positions;
    int cleared = 0;

private:
    QObject receiver; // its death ends the connections
};

} // namespace ovl::test

#endif

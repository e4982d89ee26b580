// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_COORDINATESSENDER_H
#define OVL_VISUALIZATION_COORDINATESSENDER_H

#include "export.h"

#include <QObject>

#include <memory>

namespace ovl {

/**
 * Tells the host what lies under the mouse in an image or a 3-D view. A chart has tooltips instead.
 *
 * There is one sender for all views; it exists from the moment the library is loaded. The host
 * connects its slots to instance() once. A signal does not say which view it comes from. Signals
 * are emitted on the GUI thread, from within the handling of a mouse event. A slot may destroy the
 * view, or put another one in its place: the event ends with the old one.
 */
class OVL_EXPORT CoordinatesSender : public QObject {
    Q_OBJECT

public:
    ~CoordinatesSender() override;

    /** The only instance, never null; owned by the library. */
    static CoordinatesSender* instance();

    /** Emits signal_sendCoordinates(); the image view calls it. */
    static void sendCoordinate(int x, int y);
    /** Emits signal_sendSpaceCoordinates(); the 3-D views call it. */
    static void sendSpaceCoordinate(double x, double y, double z);
    /** Emits signal_clearCoordinates(); the image view and the 3-D views call it. */
    static void clearCoordinates();

Q_SIGNALS:
    /** Nothing lies under the mouse. Repeated at every move for as long as that is so. */
    void signal_clearCoordinates();
    /** Column and row of the pixel under the mouse, from 0 on; row 0 is the image's top. */
    void signal_sendCoordinates(int x, int y);
    /**
     * Position of the surface or point under the mouse, in the host's units and order, each
     * coordinate rounded to a whole number: halves away from zero.
     */
    void signal_sendSpaceCoordinates(double x, double y, double z);

private:
    CoordinatesSender();

    static std::unique_ptr<CoordinatesSender> coordinates_sender;
};

} // namespace ovl

#endif

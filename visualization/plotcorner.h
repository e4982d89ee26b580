// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTCORNER_H
#define OVL_VISUALIZATION_PLOTCORNER_H

#include <vtkContextTransform.h>

#include <vector>

class vtkPlotPoints;

namespace ovl {

/** What one call to the device can draw; plots that agree in it may differ in colour. */
struct PlotLook {
    enum Kind { Own, Lines, Markers };

    bool operator==(const PlotLook& other) const
    {
        return kind == other.kind && pattern == other.pattern && width == other.width;
    }

    Kind kind = Own; ///< Own: only the plot itself knows how
    int pattern = 0; ///< of the pen, or the shape of the markers
    float width = 0.0F; ///< of the pen, or of a marker
};

/**
 * A corner of a chart, which paints its plots as each of them would paint itself, to the pixel.
 *
 * A call to the device costs as much as thousands of points, and every shape makes two. So small
 * plots that follow each other and look alike but for their colour go to the device together, each
 * point with its plot's colour. Their order stays, and so does what covers what.
 */
class PlotCorner : public vtkContextTransform {
public:
    vtkTypeMacro(PlotCorner, vtkContextTransform)
    static PlotCorner* New();

    PlotCorner(const PlotCorner&) = delete;
    PlotCorner& operator=(const PlotCorner&) = delete;

    bool PaintChildren(vtkContext2D* painter) override;

protected:
    PlotCorner() = default;
    ~PlotCorner() override = default;

private:
    void Add(vtkPlotPoints* plot);
    void Flush(vtkContext2D* painter);

    // The plots that wait to be drawn together; between two paints none.
    PlotLook Look;
    std::vector<vtkPlotPoints*> Plots;
    std::vector<float> Points; ///< x and y of each
    std::vector<unsigned char> Colors; ///< red, green, blue, opacity of each
};

} // namespace ovl

#endif

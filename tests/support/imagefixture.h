// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_IMAGEFIXTURE_H
#define OVL_TESTS_SUPPORT_IMAGEFIXTURE_H

#include "hostfixture.h"
#include <visualization/imageview.h>

#include <vtkCamera.h>
#include <vtkImageActor.h>
#include <vtkImageData.h>
#include <vtkImageMapper3D.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <array>
#include <vector>

namespace ovl::test {

using Vector3 = std::array<double, 3>;

/** An ImageView on a real widget, with its scene as a host can reach it through the window. */
class ImageFixture : public ViewFixture<ImageView> {
public:
    using ViewFixture::ViewFixture;

    vtkImageActor* image()
    {
        return vtkImageActor::SafeDownCast(renderer()->GetViewProps()->GetLastProp());
    }
    vtkCamera* camera() { return renderer()->GetActiveCamera(); }
    Vector3 actorPosition() { return triple(image()->GetPosition()); }
    Vector3 cameraPosition() { return triple(camera()->GetPosition()); }
    Vector3 focalPoint() { return triple(camera()->GetFocalPoint()); }
    Vector3 viewUp() { return triple(camera()->GetViewUp()); }
    Vector3 directionOfProjection() { return triple(camera()->GetDirectionOfProjection()); }

    /** What the actor shows: the output of the last filter of the pipeline. */
    vtkImageData* shown()
    {
        image()->GetMapper()->Update();
        return image()->GetMapper()->GetInput();
    }

    /** Where on the widget the centre of a pixel appears; fractions lie between the centres. */
    QPointF at(double column, double row)
    {
        const Vector3 position = actorPosition();
        renderer()->SetWorldPoint(position[0] + column, position[1] + row, position[2], 1.0);
        renderer()->WorldToDisplay();
        const double* display = renderer()->GetDisplayPoint();
        // A display coordinate counts from the pixel's corner, Qt's from its middle.
        return {display[0] - 0.5, widget()->height() - 0.5 - display[1]};
    }

    /**
     * A place on a pixel of the image: its middle, but a little further inside for the outermost
     * ones, since the framework draws and picks an image up to their centres only.
     */
    QPointF on(int column, int row)
    {
        const int* size = shown()->GetDimensions();
        return at(std::clamp<double>(column, 0.2, size[0] - 1.2),
            std::clamp<double>(row, 0.2, size[1] - 1.2));
    }

    QColor colorOf(int column, int row)
    {
        render(); // the camera knows the window's shape from then on
        return picture().pixelColor(on(column, row).toPoint());
    }

    /** Draws one channel of samples of any of the integer types, a row of `width` after the other.
     */
    template <class Sample>
    void draw(std::vector<Sample>& samples, int width, int components, int sampleType)
    {
        const int height = static_cast<int>(samples.size()) / (width * components);
        view->drawScene(samples.data(), width, height, {components, sampleType});
    }

private:
    static Vector3 triple(const double* values) { return {values[0], values[1], values[2]}; }
};

} // namespace ovl::test

#endif

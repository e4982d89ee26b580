// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_STEADYMAPPER_H
#define OVL_VISUALIZATION_STEADYMAPPER_H

#include "vtkcompat.h"

#include <vtkDataSetMapper.h>
#include <vtkOpenGLPolyDataMapper.h>

namespace ovl {

/**
 * The stock mapper for streams: of a frame like the last one only the points are worked through.
 *
 * The stock mapper builds its index buffers again whenever points or values have changed, marks the
 * points of all cells only to find the bounds, and looks for the extent of the points once more to
 * fit them into floats. Where every point is known to be used, one look gives both, and the index
 * buffers stay for as long as the cells do. The picture is the stock mapper's in every case; what
 * is not known is left to it.
 */
class SteadyMapper : public vtkOpenGLPolyDataMapper {
public:
    static SteadyMapper* New();
    vtkTypeMacro(SteadyMapper, vtkOpenGLPolyDataMapper)

    SteadyMapper(const SteadyMapper&) = delete;
    SteadyMapper& operator=(const SteadyMapper&) = delete;

    /**
     * Tells that `cells`, as they are now, use each of so many points. The next change of the cells
     * ends that.
     */
    void setUsesAll(vtkCellArray* cells, vtkIdType points);
    /** As setUsesAll(), for a single cell that lists the points 0, 1, 2 and so on. */
    void setListsAll(vtkCellArray* cells, vtkIdType points);

    void ReleaseGraphicsResources(vtkWindow* window) override;

protected:
    SteadyMapper();
    ~SteadyMapper() override;

#if OVL_MAPPERS_BUILD_BUFFERS
    void ComputeBounds() override;
    void BuildBufferObjects(vtkRenderer* renderer, vtkActor* actor) override;
    void BuildIBO(vtkRenderer* renderer, vtkActor* actor, vtkPolyData* data) override;
#endif

private:
    class Private;
    Private* d;
};

/** The stock mapper of any data set, with a SteadyMapper inside for the poly data it is given. */
class SteadyDataSetMapper : public vtkDataSetMapper {
public:
    static SteadyDataSetMapper* New();
    vtkTypeMacro(SteadyDataSetMapper, vtkDataSetMapper)

    SteadyDataSetMapper(const SteadyDataSetMapper&) = delete;
    SteadyDataSetMapper& operator=(const SteadyDataSetMapper&) = delete;

    SteadyMapper* inner() const;

    using vtkDataSetMapper::GetBounds;
    double* GetBounds() override;

protected:
    SteadyDataSetMapper();
    ~SteadyDataSetMapper() override = default;
};

} // namespace ovl

#endif

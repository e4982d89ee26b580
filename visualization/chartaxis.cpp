// SPDX-License-Identifier: BSD-3-Clause
#include "chartaxis.h"

#include <vtkDoubleArray.h>
#include <vtkObjectFactory.h>
#include <vtkStringArray.h>

#include <cmath>

namespace ovl {

namespace {

/** Whether steps lead from `from` to `to`; away from it none is taken. */
bool stepsLead(double from, double to, double step)
{
    const bool mustStep = step > 0.0 ? from < to : from > to;
    return !mustStep || from + step != from;
}

} // namespace

vtkStandardNewMacro(ChartAxis);

void ChartAxis::RecalculateTickSpacing()
{
    if (canBeStepped()) {
        Superclass::RecalculateTickSpacing();
        return;
    }
    if (CustomTickLabels)
        return; // the host's own stay
    TickPositions->SetNumberOfTuples(0);
    TickLabels->SetNumberOfTuples(0);
    TickMarksDirty = false; // or the next update would lay some by the last interval
}

bool ChartAxis::canBeStepped()
{
    if (Behavior == vtkAxis::CUSTOM)
        return true;
    if (!std::isfinite(Minimum) || !std::isfinite(Maximum))
        return false;
    if (UsingNiceMinMax || TickLabelAlgorithm != vtkAxis::TICK_SIMPLE)
        return true; // no steps are taken
    double first = Minimum;
    double last = Maximum;
    const double size = CalculateNiceMinMax(first, last);
    const double step = Maximum > Minimum ? size : -size;
    return stepsLead(first, Minimum, step) && stepsLead(last, Maximum, -step);
}

} // namespace ovl

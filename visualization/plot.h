// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOT_H
#define OVL_VISUALIZATION_PLOT_H

#include <cstdint>

class vtkPlot;

namespace ovl {

class Shape;

/**
 * A field of a Plot that is written by many and looked at for each event: it counts its changes, in
 * all plots together, so that nobody has to look into thousands of plots to find none. Otherwise it
 * is its value.
 */
template <class T> class Noted {
public:
    Noted(T initial) // NOLINT: to be written as a plain field is
        : value(initial)
    {
    }
    Noted(const Noted&) = default;
    Noted& operator=(T changed)
    {
        if (value != changed)
            ++count;
        value = changed;
        return *this;
    }
    Noted& operator=(const Noted& other)
    {
        const T changed = other.value;
        return *this = changed;
    }
    operator T() const { return value; } // NOLINT: and read as one
    T operator->() const { return value; }

    /** How often the field has changed in any plot. */
    static std::uint64_t changes() { return count; }

private:
    inline static std::uint64_t count = 0;
    T value;
};

/**
 * What a chart must know of a plot beyond what the framework's plot can tell. Every plot of a
 * ChartXY carries it, as the second base of its class, and is asked for it by a cross cast.
 */
struct Plot {
    /** The other plot of the same shape: of the lines the handles, of the handles the lines. */
    vtkPlot* sibling = nullptr;
    /** The shape that the plot draws, not owned; null for a plot of data. */
    Noted<Shape*> shape = nullptr;
    /** The plot draws its shape's handles, not its lines. */
    bool isHandle = false;
    bool tooltipVisible = true;
    bool canDragX = false;
    bool canDragY = false;
    /** The chart is dragging the plot's shape. Written by the chart only. */
    Noted<bool> dragTarget = false;
};

} // namespace ovl

/**
 * The body of a plot class that is its framework base with a Plot beside it and behaves exactly as
 * that base does. To be closed by a vtkStandardNewMacro in the source file.
 */
#define OVL_PLOT_CLASS(thisClass, superclass)                                                      \
public:                                                                                            \
    vtkTypeMacro(thisClass, superclass)                                                            \
    static thisClass* New();                                                                       \
    void PrintSelf(ostream& os, vtkIndent indent) override                                         \
    {                                                                                              \
        this->superclass::PrintSelf(os, indent);                                                   \
    }                                                                                              \
    thisClass(const thisClass&) = delete;                                                          \
    thisClass& operator=(const thisClass&) = delete;                                               \
                                                                                                   \
protected:                                                                                         \
    thisClass() = default;                                                                         \
    ~thisClass() override = default;

#endif

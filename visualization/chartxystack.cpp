// SPDX-License-Identifier: BSD-3-Clause
// Many plots at once: one by one each would be looked for among all others.
#include "chartxy_p.h"

#include <algorithm>
#include <unordered_set>

namespace ovl {
namespace {

using Item = vtkSmartPointer<vtkAbstractContextItem>;
using ItemSet = std::unordered_set<vtkAbstractContextItem*>;

std::vector<Item> itemsOf(vtkAbstractContextItem* parent)
{
    std::vector<Item> items;
    for (vtkIdType i = 0; i < parent->GetNumberOfItems(); ++i)
        items.emplace_back(parent->GetItem(i));
    return items;
}

void setItems(vtkAbstractContextItem* parent, const std::vector<Item>& items)
{
    parent->ClearItems();
    for (const Item& item : items)
        parent->AddItem(item);
}

/** Those of `plots` that are items of `corner`, the last one first. */
std::vector<Item> lastFirst(const std::vector<vtkPlot*>& plots, vtkContextTransform* corner)
{
    std::vector<Item> found;
    for (auto plot = plots.rbegin(); plot != plots.rend(); ++plot)
        if (*plot && (*plot)->GetParent() == corner)
            found.emplace_back(*plot);
    return found;
}

} // namespace

void ChartXY::LowerPlots(const std::vector<vtkPlot*>& plots)
{
    ChartPrivate->roster.itemsChanged();
    for (vtkContextTransform* corner : ChartPrivate->plotCorners) {
        std::vector<Item> order = lastFirst(plots, corner);
        if (order.empty())
            continue;
        const ItemSet lowered(order.begin(), order.end());
        for (const Item& item : itemsOf(corner))
            if (lowered.count(item) == 0)
                order.push_back(item);
        setItems(corner, order);
    }
}

void ChartXY::RemovePlots(const std::vector<vtkPlot*>& plots)
{
    ChartPrivate->roster.itemsChanged();
    const ItemSet unwanted(plots.begin(), plots.end());
    const auto isUnwanted = [&](vtkAbstractContextItem* plot) { return unwanted.count(plot) > 0; };
    std::vector<vtkPlot*>& all = ChartPrivate->plots;
    const auto removed = std::stable_partition(
        all.begin(), all.end(), [&](vtkPlot* plot) { return !isUnwanted(plot); });
    if (removed == all.end())
        return;
    for (auto kept = all.begin(); kept != removed; ++kept) {
        Plot* part = plotPart(*kept);
        if (part && isUnwanted(part->sibling))
            part->sibling = nullptr;
    }
    for (vtkContextTransform* corner : ChartPrivate->plotCorners) {
        std::vector<Item> items = itemsOf(corner);
        items.erase(std::remove_if(items.begin(), items.end(), isUnwanted), items.end());
        setItems(corner, items);
    }
    std::for_each(removed, all.end(), [this](vtkPlot* plot) { plot->UnRegister(this); });
    all.erase(removed, all.end());
    RecalculateBounds();
}

} // namespace ovl

// SPDX-License-Identifier: BSD-3-Clause
// Hovers over points until every tooltip of the guide's tables has been seen.
#include <support/profilefixture.h>

#include <vtkTooltipItem.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace ovl::test {
namespace {

struct Example {
    std::string format;
    double x = 0.0;
    double y = 0.0;
    int row = 0;
    std::string tooltip;
};

std::vector<Example> readGuide()
{
    const char* path = std::getenv("OVL_TOOLTIP_GUIDE");
    std::ifstream guide(path ? path : "");
    const std::regex row(
        R"(\| (`([^`]+)` )?\| ([-0-9.]+) \| ([-0-9.]+) \| ([0-9]+) \| `([^`]*)` \|)");
    std::vector<Example> examples;
    std::smatch cells;
    for (std::string line; std::getline(guide, line);)
        if (std::regex_match(line, cells, row))
            examples.push_back({cells[2], std::stod(cells[3]), std::stod(cells[4]),
                std::stoi(cells[5]), cells[6]});
    return examples;
}

/** A curve whose only point is in that row. */
void show(ProfileFixture& f, const Example& example)
{
    f.view->setNumberOfValues(example.row + 1);
    for (int row = 0; row <= example.row; ++row) {
        f.view->setValue(0, row, example.x);
        f.view->setNanValue(1, row);
    }
    f.view->setValue(1, example.row, example.y);
    f.view->setPlotTitle(1, "A");
    f.view->setPlotFormat(1, QString::fromStdString(example.format));
    f.view->setBottomRange(-10, 10);
    f.view->setLeftRange(static_cast<int>(example.y) - 10, static_cast<int>(example.y) + 10);
    f.view->resetView();
    f.view->drawPlots();
    f.render();
}

TEST(TooltipGuide, EveryExampleIsWhatAHoverShows)
{
    const std::vector<Example> examples = readGuide();
    ASSERT_GE(examples.size(), 20U) << "the guide's tables were not found";
    ProfileFixture f;
    f.view->xCustomTooltip([](int, double x) { return 2.0 * x; });
    f.view->yCustomTooltip([](int row, double y) { return y + row; });
    for (const Example& example : examples) {
        SCOPED_TRACE("'" + example.format + "' is to show '" + example.tooltip + "'");
        show(f, example);
        f.move(f.position(example.x, example.y));
        EXPECT_TRUE(f.chart()->GetTooltip()->GetVisible());
        EXPECT_EQ(std::string(f.chart()->GetTooltip()->GetText()), example.tooltip);
        f.move({1, 1}); // so that the next example does not find this one's tooltip
        EXPECT_FALSE(f.chart()->GetTooltip()->GetVisible());
    }
}

TEST(TooltipGuide, EveryCodeHasAnExample)
{
    std::string formats;
    for (const Example& example : readGuide())
        formats += example.format;
    for (const char* code : {"%x", "%y", "%a", "%b", "%h", "%i", "%j", "%l"})
        EXPECT_NE(formats.find(code), std::string::npos) << code;
}

} // namespace
} // namespace ovl::test

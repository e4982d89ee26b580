// SPDX-License-Identifier: BSD-3-Clause
// The window under files that nobody should open.
#include "support/badfiles.h"
#include "support/galleryfixture.h"
#include <support/messagewatch.h>

using namespace ovl::gallery;
using ovl::test::TestFile;

namespace {

class StrangeFiles : public ovl::test::GalleryFixture {
protected:
    StrangeFiles() { window.resize(480, 360); } // to be painted often

    /** Paints a page and points at it, which looks for what lies there. */
    void look(const char* name)
    {
        page(name).viewWidget()->render();
        moveMouseToMiddle(page(name));
    }

    void expectShown(const std::vector<TestFile>& files, std::initializer_list<const char*> pages)
    {
        for (const char* name : pages) {
            show(name);
            for (const TestFile& file : files) {
                SCOPED_TRACE(file.name);
                EXPECT_TRUE(open({write(file.name, file.bytes)})) << qPrintable(noticeText());
                EXPECT_TRUE(page(name).source().startsWith(file.name))
                    << qPrintable(page(name).source());
                look(name);
            }
        }
    }
};

TEST_F(StrangeFiles, BadOnesAreAllToldAndWhatWasThereStays)
{
    ASSERT_TRUE(open({writeImage(), writeTable(), writeGrid()}));
    const std::vector<TestFile> bad = ovl::test::refusedFiles();
    const int before = window.failures();
    QStringList paths;
    for (const TestFile& file : bad)
        paths << write(file.name, file.bytes);
    EXPECT_FALSE(open(paths));
    EXPECT_EQ(window.failures(), before + static_cast<int>(bad.size()));
    EXPECT_FALSE(notice().isHidden());
    EXPECT_TRUE(noticeText().contains(bad.back().name)) << qPrintable(noticeText());
    for (const char* name : {"image", "profile", "cloud", "surface"}) {
        EXPECT_TRUE(page(name).source().startsWith("a.")) << qPrintable(page(name).source());
        show(name);
        look(name);
    }
}

TEST_F(StrangeFiles, ImagesAreShown)
{
    ovl::test::MessageWatch::allow("whole extent"); // the framework's, of an image of one pixel
    expectShown(ovl::test::strangeImages(), {"image"});
}

TEST_F(StrangeFiles, TablesAreShown) { expectShown(ovl::test::strangeTables(), {"profile"}); }

TEST_F(StrangeFiles, GridsAreShown)
{
    expectShown(ovl::test::strangeGrids(), {"cloud", "surface"});
}

} // namespace

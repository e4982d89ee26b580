// SPDX-License-Identifier: BSD-3-Clause
// Files that nobody should open: whatever they hold, the readers come back with a word about it and
// have taken no more memory than the file is worth.
#include <gallery/filecontents.h>
#include <support/badfiles.h>
#include <support/filefolder.h>
#include <support/messagewatch.h>
#include <support/residentmemory.h>

#include <QDir>
#include <QFile>

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ovl::gallery;
using ovl::test::MessageWatch;
using ovl::test::TestFile;

namespace {

class BadFiles : public ovl::test::FileFolder {
protected:
    void expectRefused(const QString& file, const char* words) const
    {
        SCOPED_TRACE(qPrintable(file));
        const Outcome<SharedContents> read = readContents(file);
        EXPECT_FALSE(read);
        EXPECT_TRUE(read.problem().contains(QLatin1String(words))) << qPrintable(read.problem());
        EXPECT_LT(read.problem().size(), 200) << "somebody is to read it";
    }

    void expectRead(const TestFile& file) const
    {
        SCOPED_TRACE(file.name);
        const Outcome<SharedContents> read = readContents(write(file.name, file.bytes));
        EXPECT_TRUE(read) << qPrintable(read.problem());
    }
};

TEST_F(BadFiles, AreToldInWords)
{
    for (const TestFile& file : ovl::test::refusedFiles())
        expectRefused(write(file.name, file.bytes), file.words);
}

TEST_F(BadFiles, TakeNoMoreMemoryThanTheyAreWorth)
{
    constexpr std::size_t kRoom = std::size_t {24} << 20;
    for (const TestFile& file : ovl::test::refusedFiles()) {
        SCOPED_TRACE(file.name);
        const QString name = write(file.name, file.bytes);
        const std::size_t before = ovl::test::residentBytes();
        ovl::test::forgetPeak();
        readContents(name);
        EXPECT_LT(ovl::test::peakBytes(), before + kRoom + 8 * std::size_t(file.bytes.size()));
    }
}

TEST_F(BadFiles, WhatIsNoFileIsNotWaitedFor)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder.png")));
    expectRefused(path("folder.png"), "folder");
    expectRefused(path("nowhere.png"), "no such file");
    ASSERT_TRUE(QFile::link(path("nowhere.png"), path("dangling.png")));
    expectRefused(path("dangling.png"), "no such file");
    ASSERT_EQ(mkfifo(path("pipe.csv").toLocal8Bit().constData(), 0600), 0);
    expectRefused(path("pipe.csv"), "no file"); // nobody ever writes into it
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path("zeros.csv")));
    expectRefused(path("zeros.csv"), "no file"); // it never ends
}

TEST_F(BadFiles, OneThatMayNotBeReadIsTold)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    const QString file = write("secret.csv", "x,y\n1,2\n");
    ASSERT_TRUE(QFile::setPermissions(file, {}));
    expectRefused(file, "ermission");
}

TEST_F(BadFiles, StrangeOnesAreRead)
{
    for (const auto& files :
        {ovl::test::strangeImages(), ovl::test::strangeTables(), ovl::test::strangeGrids()})
        for (const TestFile& file : files)
            expectRead(file);
}

/** Every byte of a small file in turn, at its least, its most and beside itself. */
class DamagedFiles : public BadFiles, public testing::WithParamInterface<TestFile> { };

TEST_P(DamagedFiles, AreReadOrToldWhateverByteIsWrong)
{
    MessageWatch::allow(""); // the decoders of the framework and of Qt say what they meet
    const QByteArray& sound = GetParam().bytes;
    for (int at = 0; at < std::min(sound.size(), 300); ++at)
        for (const int value : {0x00, 0xFF, static_cast<unsigned char>(sound[at]) ^ 1}) {
            QByteArray damaged = sound;
            damaged[at] = static_cast<char>(value);
            const Outcome<SharedContents> read = readContents(write(GetParam().name, damaged));
            EXPECT_NE(static_cast<bool>(read), !read.problem().isEmpty()) << at << ' ' << value;
        }
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, DamagedFiles,
    testing::Values(TestFile {"a.png", ovl::test::smallPng(), nullptr},
        TestFile {"a.tif", ovl::test::smallTiff(2, 2, 8, "abcd"), nullptr},
        TestFile {"a.ppm", "P6\n2 2\n255\nabcdefghijkl", nullptr},
        TestFile {"a.pgm", "P2\n2 2\n65535\n1 2 3 4", nullptr},
        TestFile {"a.csv", "x,y\n1,2\n3,4\n", nullptr},
        TestFile {"a.asc", "ncols 2\nnrows 2\nxllcorner 5\ncellsize 1\nnodata_value -1\n1 2\n3 4\n",
            nullptr}),
    [](const auto& file) { return std::string(file.param.name + 2); });

} // namespace

// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/filekind.h>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using ovl::gallery::FileKind;
using ovl::gallery::fileKindOf;
using ovl::gallery::Outcome;

namespace {

class FileKinds : public testing::Test {
protected:
    Outcome<FileKind> kindOf(const char* name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return fileKindOf(file.fileName());
    }

    void expectKind(const char* name, const QByteArray& bytes, FileKind kind) const
    {
        SCOPED_TRACE(name);
        Outcome<FileKind> found = kindOf(name, bytes);
        ASSERT_TRUE(found) << qPrintable(found.problem());
        EXPECT_EQ(found.value(), kind);
    }

    QTemporaryDir folder;
};

TEST_F(FileKinds, ContentsTell)
{
    expectKind("nameless", "P5\n1 1\n255\na", FileKind::Image);
    expectKind("misnamed.csv", QByteArray("\x89PNG\r\n\x1a\n", 8), FileKind::Image);
    expectKind("grid.txt", "NCOLS 3\nnrows 2\n", FileKind::Grid);
}

TEST_F(FileKinds, FailingThatTheNameTells)
{
    expectKind("a.PNG", "words", FileKind::Image);
    expectKind("a.tiff", "words", FileKind::Image);
    expectKind("a.csv", "x,y\n", FileKind::Table);
    expectKind("a.asc", "words", FileKind::Grid);
}

TEST_F(FileKinds, EverythingElseIsRefusedInWords)
{
    EXPECT_TRUE(kindOf("a.docx", "words").problem().contains("cannot be shown"));
    EXPECT_TRUE(kindOf("a.png", "").problem().contains("empty"));
    EXPECT_TRUE(fileKindOf(folder.path()).problem().contains("folder"));
    EXPECT_TRUE(fileKindOf(folder.filePath("none.png")).problem().contains("no such file"));
}

} // namespace

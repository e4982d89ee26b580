// SPDX-License-Identifier: BSD-3-Clause
// Runs the gallery as its user does, on the virtual screen of the test.
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <set>

namespace {

constexpr int kPatience = 100000; // ms

class Gallery : public testing::Test {
protected:
    void run(const QStringList& arguments)
    {
        program.start(QString::fromLocal8Bit(qgetenv("OVL_GALLERY_PROGRAM")), arguments);
        ASSERT_TRUE(program.waitForFinished(kPatience)) << qPrintable(program.errorString());
        ASSERT_EQ(program.exitStatus(), QProcess::NormalExit);
        errors = QString::fromUtf8(program.readAllStandardError());
    }

    QString write(const char* name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QString pictures() const { return folder.filePath(QStringLiteral("new/pictures")); }

    /** A picture of a page: there, of a window's size, and with many colours where the view is. */
    void expectPicture(const char* name) const
    {
        SCOPED_TRACE(name);
        const QImage picture(QDir(pictures()).filePath(QString::fromLatin1(name)));
        ASSERT_FALSE(picture.isNull());
        EXPECT_GT(picture.width(), 1000);
        EXPECT_GT(picture.height(), 600);
        std::set<QRgb> colours;
        int lit = 0;
        for (int y = 100; y < picture.height() - 60; y += 2)
            for (int x = 10; x < 900; x += 2) {
                const QRgb pixel = picture.pixel(x, y);
                colours.insert(pixel);
                lit += qGray(pixel) > 40 ? 1 : 0;
            }
        EXPECT_GT(colours.size(), 12U);
        EXPECT_GT(lit, 800);
    }

    QProcess program;
    QString errors;
    QTemporaryDir folder;
};

TEST_F(Gallery, GrabWritesThePicturesOfTheDocuments)
{
    run({QStringLiteral("--grab"), pictures()});
    EXPECT_EQ(program.exitCode(), 0) << qPrintable(errors);
    for (const char* name : {"gallery.png", "gallery-image.png", "gallery-profile.png",
             "gallery-cloud.png", "gallery-surface.png", "cloud-terrain.png", "surface-terrain.png",
             "profile-eeg.png", "profile-laser-line.png"})
        expectPicture(name);
    const QImage before(QDir(pictures()).filePath(QStringLiteral("drag-before.png")));
    const QImage after(QDir(pictures()).filePath(QStringLiteral("drag-after.png")));
    ASSERT_FALSE(before.isNull());
    ASSERT_EQ(before.size(), after.size());
    EXPECT_NE(before, after) << "the region has moved";
}

TEST_F(Gallery, GrabShowsTheOpenedFile)
{
    QImage image(64, 64, QImage::Format_Grayscale16);
    for (int row = 0; row < 64; ++row)
        for (int column = 0; column < 64; ++column)
            reinterpret_cast<quint16*>(image.scanLine(row))[column]
                = static_cast<quint16>(row * 1000 + column);
    const QString file = folder.filePath(QStringLiteral("ramp.png"));
    ASSERT_TRUE(image.save(file));
    run({QStringLiteral("--open"), file, QStringLiteral("--page"), QStringLiteral("image"),
        QStringLiteral("--grab"), pictures()});
    EXPECT_EQ(program.exitCode(), 0) << qPrintable(errors);
    const QImage picture(QDir(pictures()).filePath(QStringLiteral("gallery-image.png")));
    // The ramp runs from dark at the top to bright at the bottom, whatever its sixteen bits.
    EXPECT_GT(qGray(picture.pixel(490, 600)), qGray(picture.pixel(490, 420)) + 20);
    EXPECT_GT(qGray(picture.pixel(490, 420)), qGray(picture.pixel(490, 250)) + 20);
}

TEST_F(Gallery, FilesThatCannotBeShownAreToldAndEndWith2)
{
    const struct {
        QString file;
        const char* words;
    } cases[] = {
        {folder.filePath(QStringLiteral("nowhere.png")), "no such file"},
        {write("empty.png", ""), "empty"},
        {write("cut.png", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)), "header"},
        {write("short.pgm", "P5\n9 9\n255\nabc"), "cannot hold"},
        {write("grid.asc", "ncols 2\nnrows 2\ncellsize 1\n1 2\n3 x\n"), "line 5"},
        {write("table.csv", "x,y\na,b\n"), "line 2"},
        {write("letter.docx", "words"), "cannot be shown"},
    };
    QStringList arguments {QStringLiteral("--page"), QStringLiteral("image"),
        QStringLiteral("--grab"), pictures(), QStringLiteral("--open")};
    for (const auto& bad : cases)
        arguments.append(bad.file);
    run(arguments);
    EXPECT_EQ(program.exitCode(), 2);
    for (const auto& bad : cases) {
        SCOPED_TRACE(qPrintable(bad.file));
        const int at = errors.indexOf(bad.file);
        ASSERT_GE(at, 0) << qPrintable(errors);
        const QString line = errors.mid(at).section(QLatin1Char('\n'), 0, 0);
        EXPECT_TRUE(line.contains(QLatin1String(bad.words))) << qPrintable(line);
    }
    expectPicture("gallery-image.png"); // what was there stays
    EXPECT_FALSE(QFile::exists(QDir(pictures()).filePath(QStringLiteral("gallery-cloud.png"))));
}

TEST_F(Gallery, BadRowsOfATableAreToldAndTheGoodOnesShown)
{
    QByteArray text("time,value\n");
    for (int i = 0; i < 500; ++i)
        text += QByteArray::number(i) + ',' + QByteArray::number(i % 40) + '\n';
    text += "1,2,3\n";
    const QString file = write("table.csv", text);
    run({QStringLiteral("--open"), file, QStringLiteral("--page"), QStringLiteral("profile"),
        QStringLiteral("--grab"), pictures()});
    EXPECT_EQ(program.exitCode(), 0) << qPrintable(errors);
    EXPECT_TRUE(errors.contains(QStringLiteral("line 502"))) << qPrintable(errors);
    expectPicture("gallery-profile.png");
}

TEST_F(Gallery, PicturesThatCannotBeWrittenEndWith1)
{
    run({QStringLiteral("--grab"), write("file", "words") + QStringLiteral("/folder")});
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(errors.contains(QStringLiteral("cannot be made"))) << qPrintable(errors);
}

TEST_F(Gallery, UnknownPageEndsWith1)
{
    run({QStringLiteral("--page"), QStringLiteral("nonsense")});
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(errors.contains(QStringLiteral("nonsense"))) << qPrintable(errors);
}

TEST_F(Gallery, UnknownOptionEndsWith1)
{
    run({QStringLiteral("--nonsense")});
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(errors.contains(QStringLiteral("nonsense"))) << qPrintable(errors);
}

} // namespace

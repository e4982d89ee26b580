// SPDX-License-Identifier: BSD-3-Clause
// Plays the files of a corpus once, without a fuzzing engine: replay FILE|FOLDER...
#include "player.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

QStringList filesOf(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    for (const QFileInfo& file : QDir(path).entryInfoList(QDir::Files, QDir::Name))
        files << file.filePath();
    return files;
}

bool play(ovl::fuzz::Rig& rig, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "replay: cannot read %s\n", qPrintable(path));
        return false;
    }
    const QByteArray bytes = file.readAll();
    ovl::fuzz::playBytes(rig, reinterpret_cast<const std::uint8_t*>(bytes.constData()),
        static_cast<std::size_t>(bytes.size()));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    ovl::fuzz::prepareApplication();
    QApplication application(argc, argv);
    ovl::fuzz::silenceMessages();
    ovl::fuzz::Rig rig;
    int files = 0;
    for (const QString& argument : QApplication::arguments().mid(1))
        for (const QString& path : filesOf(argument)) {
            if (!play(rig, path))
                return 1;
            ++files;
        }
    std::printf("replayed %d files, %ld events\n", files, ovl::fuzz::Player::eventCount());
    return files > 0 ? 0 : 1; // an empty corpus shows nothing
}

// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_FILELIST_H
#define OVL_GALLERY_FILELIST_H

#include <QStringList>

namespace ovl::gallery {

/** The files of this session, to be walked through, and the last ones of all sessions. */
class FileList {
public:
    static constexpr int kMostRecent = 10;

    /** Adds files behind the present ones; those that are listed already keep their places. */
    void add(const QStringList& paths);
    /** This one is shown: next() and previous() count from it, and it is the most recent. */
    void setCurrent(const QString& path);

    /** The neighbours of the current file, round and round; empty when there is no other. */
    QString next() const { return neighbour(1); }
    QString previous() const { return neighbour(-1); }
    QString current() const;
    int count() const { return files.size(); }
    /** From 1 on; 0 while none is shown. */
    int place() const { return at + 1; }

    /** The last first. */
    const QStringList& recent() const { return latest; }
    void setRecent(const QStringList& paths) { latest = paths.mid(0, kMostRecent); }

private:
    QString neighbour(int step) const;

    QStringList files;
    int at = -1;
    QStringList latest;
};

} // namespace ovl::gallery

#endif

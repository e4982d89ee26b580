// SPDX-License-Identifier: BSD-3-Clause
#include "filelist.h"

namespace ovl::gallery {

void FileList::add(const QStringList& paths)
{
    for (const QString& path : paths)
        if (!files.contains(path))
            files.append(path);
}

void FileList::setCurrent(const QString& path)
{
    add({path});
    at = files.indexOf(path);
    latest.removeAll(path);
    latest.prepend(path);
    setRecent(latest);
}

QString FileList::current() const { return at < 0 ? QString() : files[at]; }

QString FileList::neighbour(int step) const
{
    if (files.isEmpty() || (files.size() == 1 && at == 0))
        return QString();
    if (at < 0) // none is shown yet
        return step > 0 ? files.constFirst() : files.constLast();
    return files[(at + step + files.size()) % files.size()];
}

} // namespace ovl::gallery

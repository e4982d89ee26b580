// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_FILEFOLDER_H
#define OVL_TESTS_SUPPORT_FILEFOLDER_H

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ovl::test {

/** A folder for the files of one test. */
class FileFolder : public testing::Test {
protected:
    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    QString write(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path(name);
    }

    QTemporaryDir folder;
};

} // namespace ovl::test

#endif

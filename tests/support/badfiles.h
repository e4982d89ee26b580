// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_BADFILES_H
#define OVL_TESTS_SUPPORT_BADFILES_H

#include <QByteArray>

#include <vector>

namespace ovl::test {

struct TestFile {
    const char* name;
    QByteArray bytes;
    const char* words; ///< what the user is told; null where the file is shown
};

/** Cut off, wrongly named, boasting or senseless: none can be shown. */
std::vector<TestFile> refusedFiles();

/** As far from the usual as they are, these can be shown. */
std::vector<TestFile> strangeImages();
std::vector<TestFile> strangeTables();
std::vector<TestFile> strangeGrids();

/** The smallest whole files of their kinds. */
QByteArray smallPng();
QByteArray smallTiff(int width, int height, int bits, const QByteArray& pixels);

} // namespace ovl::test

#endif

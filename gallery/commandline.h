// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_COMMANDLINE_H
#define OVL_GALLERY_COMMANDLINE_H

#include <QString>
#include <QStringList>

namespace ovl::gallery {

/** What the command line asks for. */
struct CommandLine {
    QStringList files; // --open, and what stands without an option
    QString folder; // --grab
    QString page; // --page
    QString settings; // --settings, or the environment's OVL_GALLERY_SETTINGS; empty for the user's
};

/** Reads the arguments of the application; on a wrong one it says so and ends the program with 1.
 */
CommandLine readCommandLine();

} // namespace ovl::gallery

#endif

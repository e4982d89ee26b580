// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_COMMANDLINE_H
#define OVL_GALLERY_COMMANDLINE_H

#include <QString>

namespace ovl::gallery {

/** What the command line asks for. */
struct CommandLine {
    QString file; // --open
    QString folder; // --grab
    QString page; // --page
};

/** Reads the arguments of the application; on a wrong one it says so and ends the program with 1.
 */
CommandLine readCommandLine();

} // namespace ovl::gallery

#endif

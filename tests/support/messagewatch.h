// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_MESSAGEWATCH_H
#define OVL_TESTS_SUPPORT_MESSAGEWATCH_H

#include <cstddef>
#include <string>

namespace ovl::test {

/**
 * Every warning and error of the framework and of Qt fails the test in which it appears, unless the
 * test has announced it. The programs' main() starts the watch; a test only announces.
 */
class MessageWatch {
public:
    /** Starts watching for the rest of the program; called once, by main(). */
    static void install();

    /** The running test must see at least one message that contains `text`. */
    static void expect(std::string text);
    /** The running test may see messages that contain `text`. */
    static void allow(std::string text);
    /** How many messages containing `text` the running test has seen so far. */
    static std::size_t count(const std::string& text);
};

} // namespace ovl::test

#endif

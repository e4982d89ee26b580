// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_PATIENCE_H
#define OVL_TESTS_SUPPORT_PATIENCE_H

namespace ovl::test {

constexpr int kPatience = 30000; // ms; a busy machine is slow to show a window

} // namespace ovl::test

#endif

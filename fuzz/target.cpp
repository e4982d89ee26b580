// SPDX-License-Identifier: BSD-3-Clause
// What the fuzzing engine calls.
#include "player.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace {

ovl::fuzz::Rig* rig = nullptr; // lives as long as the program, as its application does

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    ovl::fuzz::prepareApplication();
    new QApplication(*argc, *argv);
    ovl::fuzz::silenceMessages();
    rig = new ovl::fuzz::Rig;
    std::atexit([] {
        std::fprintf(stderr, "events in all: %ld\n", ovl::fuzz::Player::eventCount());
        std::_Exit(0); // the window system must not be left by a program that still has windows
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ovl::fuzz::playBytes(*rig, data, size);
    // The engine counts inputs; what counts for us is how much they said.
    static const char* const wanted = std::getenv("OVL_FUZZ_EVENTS");
    if (wanted && ovl::fuzz::Player::eventCount() >= std::atol(wanted))
        std::exit(0);
    return 0;
}

// SPDX-License-Identifier: BSD-3-Clause
// What the fuzzing engine calls.
#include "player.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

ovl::fuzz::Rig* rig = nullptr; // lives as long as the program, as its application does

/** To make and destroy a view takes as long as a hundred events: so it shall be worth it. */
constexpr std::size_t kUsualSize = 16384;

/** The window system must not be left by a program that still has windows. */
[[noreturn]] void leave()
{
    std::fprintf(stderr, "events in all: %ld\n", ovl::fuzz::Player::eventCount());
    std::_Exit(0);
}

} // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    ovl::fuzz::prepareApplication();
    new QApplication(*argc, *argv);
    ovl::fuzz::silenceMessages();
    rig = new ovl::fuzz::Rig;
    std::atexit(leave);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ovl::fuzz::playBytes(*rig, data, size);
    // The engine counts inputs; what counts for us is how much they said.
    static const char* const wanted = std::getenv("OVL_FUZZ_EVENTS");
    if (wanted && ovl::fuzz::Player::eventCount() >= std::atol(wanted))
        leave(); // the engine would take another way out for a finding
    return 0;
}

/** What the engine would do, and as many bytes more as an input should have. */
extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    std::minstd_rand random(seed);
    std::size_t mutated = LLVMFuzzerMutate(data, size, maxSize);
    while (mutated < std::min(maxSize, kUsualSize))
        data[mutated++] = static_cast<std::uint8_t>(random() >> 8U);
    return mutated;
}

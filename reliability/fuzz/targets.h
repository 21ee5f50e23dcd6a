#pragma once

#include <QByteArrayView>

#include <array>

namespace marrowcut::fuzz
{

/// Reads foreign bytes with one piece of the program and aborts when the outcome breaks that piece's
/// contract. The sanitizers see the rest.
struct Target {
    const char *name;
    void (*read)(QByteArrayView bytes);
};

extern const std::array<Target, 8> targets;

} // namespace marrowcut::fuzz

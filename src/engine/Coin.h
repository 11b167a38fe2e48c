// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

/** Gives 0 or 1; asked on the audio thread and on the message thread, so it must neither lock nor allocate. */
using Coin = std::function<int()>;

/** A fair coin that needs no lock, seeded from the system's entropy: no two runs toss alike. */
Coin makeFairCoin();

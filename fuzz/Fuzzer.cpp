// SPDX-License-Identifier: GPL-3.0-or-later
// What the fuzzing library looks up: the target that DUO_FUZZ_TARGET names.
#include "FuzzTarget.h"
#include "World.h"

#include <iostream>

namespace
{

FuzzTarget::Run target = nullptr;

}   // namespace

extern "C" int LLVMFuzzerInitialize (int*, char***)
{
    static const World world;
    const auto* const name = std::getenv ("DUO_FUZZ_TARGET");
    const auto found = FuzzTarget::getAll().find (name != nullptr ? name : "");

    if (found == FuzzTarget::getAll().end())
    {
        std::cerr << "DUO_FUZZ_TARGET names none of the targets:\n";

        for (const auto& [known, run] : FuzzTarget::getAll())
            std::cerr << "    " << known << "\n";

        std::exit (2);
    }

    target = found->second;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    target (data, size);
    return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/sdk/AAX_Effect.h"

#include <atomic>

/** One of the objects that make up an instance: it knows the host's side of it.
    @tparam Interface what it is to the host */
template <typename Interface>
class AAX_CObject : public Interface
{
public:
    AAX_Result Initialize (AAX_IController* itsHost) override
    {
        host = itsHost;
        return host != nullptr ? AAX_SUCCESS : AAX_ERROR_NULL_OBJECT;
    }

    AAX_IController* Controller() const noexcept { return host; }

    AAX_IEffectParameters* GetEffectParameters() const
    {
        return host != nullptr ? host->GetEffectParameters() : nullptr;
    }

    /** How many of these live. */
    static inline std::atomic<int> count { 0 };

protected:
    AAX_CObject() { ++count; }
    ~AAX_CObject() override { --count; }

private:
    AAX_CObject (const AAX_CObject&) = delete;
    AAX_CObject& operator= (const AAX_CObject&) = delete;

    AAX_IController* host = nullptr;   // until the host tells it
};

/** An offline processor that knows its instance, and leaves all else to those derived from it. */
using AAX_CHostProcessor = AAX_CObject<AAX_IHostProcessor>;

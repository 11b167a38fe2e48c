// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/sdk/AAX_Types.h"
#include "platform/Relaxed.h"

#include <string>

/** A parameter by its value from 0 to 1 [any thread]. */
class AAX_IParameter
{
public:
    virtual ~AAX_IParameter() = default;

    const AAX_SParameterInfo& Info() const noexcept { return info; }
    double GetNormalizedValue() const noexcept { return normalized; }
    void UpdateNormalizedValue (double value) noexcept { normalized = value; }

protected:
    AAX_IParameter (std::string itsId, std::string itsName, double itsDefault, bool isAutomatable, int numSteps,
                    bool isContinuous) :
        id (std::move (itsId)),
        name (std::move (itsName)),
        info { id.c_str(), name.c_str(), itsDefault, numSteps, isAutomatable, isContinuous }, normalized (itsDefault)
    {
    }

private:
    const std::string id, name;
    const AAX_SParameterInfo info;
    Relaxed<double> normalized;
};

/** Lays the values from `minimum` to `maximum` evenly on 0 to 1. */
template <typename Value>
struct AAX_CLinearTaper
{
    double toNormalized (Value value) const { return double (value - minimum) / double (maximum - minimum); }
    Value toValue (double normalized) const { return minimum + Value (normalized * double (maximum - minimum)); }

    Value minimum, maximum;
};

/** Off in the lower half, on in the upper one. */
template <>
struct AAX_CLinearTaper<bool>
{
    double toNormalized (bool value) const { return value ? 1.0 : 0.0; }
    bool toValue (double normalized) const { return normalized >= 0.5; }
};

/** A parameter by the value that it stands for. */
template <typename Value>
class AAX_CParameter : public AAX_IParameter
{
public:
    AAX_CParameter (std::string itsId, std::string itsName, Value itsDefault, AAX_CLinearTaper<Value> itsTaper,
                    bool isAutomatable, int numSteps, bool isContinuous) :
        AAX_IParameter (std::move (itsId), std::move (itsName), itsTaper.toNormalized (itsDefault), isAutomatable,
                        numSteps, isContinuous),
        taper (itsTaper)
    {
    }

    Value GetValue() const { return taper.toValue (GetNormalizedValue()); }

private:
    const AAX_CLinearTaper<Value> taper;
};

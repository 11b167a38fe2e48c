// SPDX-License-Identifier: GPL-3.0-or-later
// Channel routing codes: on which channel of a surround bus to find each speaker.
#include "framework/OxJuceProcessorBase.h"

namespace
{

constexpr int kRoutingOfSmallBuses = 1;
constexpr int kAskForDefault = 99;
constexpr int kNoRouting = 100;   // valid for no bus: replaced when it is asked for

bool isAvid (int pluginType)
{
    return pluginType == OxJuceProcessorBase::typeRtas || pluginType == OxJuceProcessorBase::typeAax;
}

bool isVst (int pluginType)
{
    return pluginType == OxJuceProcessorBase::typeVst || pluginType == OxJuceProcessorBase::typeVst3;
}

bool isBetween (int code, int first, int last)
{
    return code >= first && code <= last;
}

/** The order in which a plug-in format counts the channels of a bus, up to 12. */
int getRoutingOfFormat (int numChannels, int pluginType)
{
    if (numChannels <= 6)
        return pluginType == OxJuceProcessorBase::typeAu ? 2 : isAvid (pluginType) ? 0 : 1;

    if (numChannels <= 8)
        return isVst (pluginType) ? 9 : 3;

    if (numChannels <= 10)
        return isAvid (pluginType) ? 15 : 16;

    return isAvid (pluginType) ? 24 : 25;
}

}   // namespace

int OxJuceProcessorBase::getDefaultRouting (int)
{
    const auto numChannels = getMaxNumChannels();
    return numChannels < 0 || numChannels > 12 ? kNoRouting : getRoutingOfFormat (numChannels, pluginType);
}

int OxJuceProcessorBase::getRoutingForChannels (int requestedChannels)
{
    const auto numChannels = requestedChannels == -1 ? getMaxNumChannels() : requestedChannels;

    if (numChannels < 3)
        return kRoutingOfSmallBuses;

    const auto code = getParamCode (getRoutingParam());

    if (code == kAskForDefault)
        return getDefaultRouting (numChannels);

    const auto use = [this] (int newCode)
    {
        setParamUndoable (getRoutingParam(), thousandths::fromCode (newCode), false, ParamOrigin::consequence);
        return newCode;
    };
    const auto ofFormat = getRoutingOfFormat (numChannels, pluginType);

    if (numChannels <= 6)
    {
        if (isBetween (code, 0, 2) || isBetween (code, 17, 18))
            return code;

        const auto stored = getParamCode (getRoutingDefaultParam());
        return use (isBetween (stored, 0, 2) ? stored : ofFormat);
    }

    if (numChannels <= 8)
    {
        if (isBetween (code, 3, 9) || isBetween (code, 13, 14) || isBetween (code, 24, 25))
            return code;

        const auto stored = getParamCode (getRoutingDefault71Param());
        return use (isBetween (stored, 3, 9) ? stored : ofFormat);
    }

    if (numChannels <= 10)
    {
        if (isBetween (code, 15, 19))
            return code;

        const auto stored = getParamCode (getRoutingDefault712Param());
        return use (isBetween (stored, 15, 19) ? stored : ofFormat);
    }

    if (numChannels <= 12 && ! isBetween (code, 24, 25))
        return use (ofFormat);

    return code;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "menu/HotLinks.h"

#include "framework/OxJuceProcessorBase.h"
#include "framework/ProductNames.h"
#include "platform/Viewer.h"

namespace hotLinks
{
namespace
{

juce::String& serverBase()
{
    static juce::String base (getProductNames().server);
    return base;
}

}   // namespace

juce::String makeHotLink (const OxJuceProcessorBase& processor, const juce::String& key)
{
    juce::String link (serverBase());
    link << "hotlink.php?id=" << getProductNames().display << "&version=" << getProductNames().version
         << "&hotlink=" << key << "&ls=1&format=" << processor.getPlatformTag() << "&procdepth=3264";
    return link;
}

juce::String openHotLink (const OxJuceProcessorBase& processor, const juce::String& key, bool openInBrowser,
                          bool fetchText)
{
    const juce::URL url (makeHotLink (processor, key));

    if (openInBrowser)
        platform::openForUser (url);

    return fetchText ? url.readEntireTextStream() : juce::String();
}

ScopedServer::ScopedServer (const juce::String& base) : previous (std::exchange (serverBase(), base))
{
}

ScopedServer::~ScopedServer()
{
    serverBase() = previous;
}

}   // namespace hotLinks

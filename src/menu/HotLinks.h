// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

class OxJuceProcessorBase;

/** The plug-in's only way out: addresses on the maker's server, which say by a key what is wanted, and who is asking. */
namespace hotLinks
{

constexpr const char *kGetVersions = "GET_VERSIONS", *kWebSite = "BACK_BUTTON_NORMAL", *kDownloads = "DOWNLOAD_CR";

juce::String makeHotLink (const OxJuceProcessorBase& processor, const juce::String& key);

/** Opens a hot link in the user's browser, or reads it, or both [message thread].
    @returns the text of the reply if it was to be read, empty if there was none; it waits for as long as that takes */
juce::String openHotLink (const OxJuceProcessorBase& processor, const juce::String& key, bool openInBrowser,
                          bool fetchText);

/** While it lives, hot links lead to another server. */
class ScopedServer
{
public:
    explicit ScopedServer (const juce::String& base);
    ~ScopedServer();

    ScopedServer (const ScopedServer&) = delete;
    ScopedServer& operator= (const ScopedServer&) = delete;

private:
    const juce::String previous;
};

}   // namespace hotLinks

// SPDX-License-Identifier: GPL-3.0-or-later
// Offline passes, and the private commands that drive them among other things.
#include "framework/OxJuceProcessorBase.h"

namespace
{

constexpr int kOfflineChunk = 1024;   // samples
constexpr juce::int32 kVendorMagic = 0x5a3c17e6;

enum Command : juce::int32   // beside those that name a `ProcessMode`
{
    cmdAnswerFalse = 105,
    cmdPointer = 201,
    cmdIsMenuOpen = 202,
    cmdOpenMenu = 203,
    cmdFileDetails = 204,
    cmdGetRouting = 206,
    cmdResizeEditor = 211,
    cmdGetEditorWidth = 212,
    cmdGetEditorHeight = 213,
    cmdSetFlag = 214,
    cmdGetFlag = 215,
    cmdDisable = 217,
    cmdEnable = 218,
    cmdArguments = 219
};

void resizeEditor (juce::AudioProcessorEditor* editor, const void* pointer, float opt)
{
    if (editor == nullptr || pointer == nullptr)
        return;

    const auto* const size = static_cast<const juce::int32*> (pointer);

    if (auto* const peer = editor->getPeer())
        peer->setBounds ({ 0, 0, size[0], size[1] }, opt > 1.0f);
}

}   // namespace

void OxJuceProcessorBase::prepareOfflineRender()
{
    offlineSamplePos = 0;
    updateTransport();
}

void OxJuceProcessorBase::prepareOfflineAnalysis()
{
    offlineSamplePos = 0;
    updateTransport();
}

template <typename Process>
void OxJuceProcessorBase::processInChunks (juce::AudioSampleBuffer& block, Process&& process)
{
    for (int start = 0; start < block.getNumSamples(); start += kOfflineChunk)
    {
        const auto length = std::min (kOfflineChunk, block.getNumSamples() - start);
        juce::AudioSampleBuffer chunk (block.getArrayOfWritePointers(), block.getNumChannels(), start, length);
        blockStartSample = offlineSamplePos;
        timerCallback();   // by hand: a host may hold up the events until its render is done
        runPendingTimers();
        process (chunk);
        offlineSamplePos += length;
    }
}

void OxJuceProcessorBase::renderOfflineInChunks (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi)
{
    processInChunks (block, [this, &midi] (auto& chunk) { renderOffline (chunk, midi); });
}

void OxJuceProcessorBase::analyseOfflineInChunks (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi)
{
    processInChunks (block, [this, &midi] (auto& chunk) { analyseOffline (chunk, midi); });
}

void OxJuceProcessorBase::setFileDetails (std::unique_ptr<juce::XmlElement> xml)
{
    if (xml != nullptr && xml->getTagName().equalsIgnoreCase ("FILEDETAILS"))
        fileDetailsPath = xml->getStringAttribute ("FULLPATHNAME");
}

juce::int64 OxJuceProcessorBase::handleVendorCommand (juce::int32 magic, juce::int32 opcode, void* pointer, float opt)
{
    if (magic != kVendorMagic)
        return 0;

    switch (opcode)
    {
        case offlineAnalysis:
            processMode = opcode;
            prepareOfflineAnalysis();
            return 0;
        case offlineRender:
            processMode = opcode;
            prepareOfflineRender();
            return 0;
        case analysisFinished:
            processMode = opcode;
            finishOfflineAnalysis();
            return 0;
        case renderFinished:
            processMode = opcode;
            finishOfflineRender();
            return 0;
        case cmdAnswerFalse:
            if (pointer != nullptr)
                *static_cast<juce::String*> (pointer) = "False";
            return 0;
        case cmdPointer:
            handleVendorPointer (pointer);
            return 0;
        case cmdIsMenuOpen:
            return parameter (getMenuParam()).value != 0.0f ? 1 : 0;
        case cmdOpenMenu:
            setParamUndoable (getMenuParam(), 1.0f, true);
            return 0;
        case cmdFileDetails:
            if (pointer != nullptr)
                setFileDetails (std::make_unique<juce::XmlElement> (*static_cast<const juce::XmlElement*> (pointer)));
            return 0;
        case cmdGetRouting:
            return getRoutingForChannels (-1);
        case cmdResizeEditor:
            resizeEditor (getActiveEditor(), pointer, opt);
            return 0;
        case cmdGetEditorWidth:
            return getActiveEditor() != nullptr ? getActiveEditor()->getWidth() : 0;
        case cmdGetEditorHeight:
            return getActiveEditor() != nullptr ? getActiveEditor()->getHeight() : 0;
        case cmdSetFlag:
            vendorFlag = opt > 0.0f;
            return vendorFlag ? 1 : 0;
        case cmdGetFlag:
            return vendorFlag ? 1 : 0;
        case cmdDisable:
            pluginDisabled = true;
            return 0;
        case cmdEnable:
            pluginDisabled = false;
            return 0;
        case cmdArguments:
        {
            const juce::String text (juce::CharPointer_UTF8 (static_cast<const char*> (pointer)));
            return handleVendorArguments (juce::StringArray::fromTokens (text, ",", "\"")) ? 1 : 0;
        }
        default:
            return 0;
    }
}

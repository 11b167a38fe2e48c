// SPDX-License-Identifier: GPL-3.0-or-later
// The log of the process, which its first processor opens and its last one closes, and the log for the support desk.
#include "framework/MachineStamp.h"
#include "framework/OxJuceProcessorBase.h"
#include "framework/ProductNames.h"
#include "framework/Settings.h"
#include "platform/KnownFolders.h"
#include "platform/Process.h"

namespace
{

constexpr juce::int64 kMaxLogSize = 128 * 1024;   // bytes, of what stands in a file that is opened again
constexpr auto* kMakerFolder = "ORVEX Audio";

std::atomic<int> instanceCount { 0 };

juce::CriticalSection logsLock;             // hosts build and drop processors on several threads at once
juce::FileLogger* sharedLogger = nullptr;   // owned by the living processors together

/** Cuts a long file down to its last lines. The toolkit would do so by itself, but gives up at the first byte of nought, and
    files have them after a crash of the machine. */
void keepLastLines (const juce::File& file)
{
    const auto size = file.getSize();

    if (size <= kMaxLogSize)
        return;

    juce::MemoryBlock tail;
    juce::FileInputStream in (file);

    // The byte before tells whether a line starts right there.
    if (! in.openedOk() || ! in.setPosition (size - kMaxLogSize - 1))
        return;

    if (in.readIntoMemoryBlock (tail, kMaxLogSize + 1) == 0)
        return;

    const auto* const lineEnd = std::find (tail.begin(), tail.end(), '\n');
    const auto* const start = lineEnd != tail.end() ? lineEnd + 1 : tail.begin() + 1;
    file.replaceWithData (start, static_cast<std::size_t> (tail.end() - start));
}

std::unique_ptr<juce::FileLogger> openLog (const juce::File& file, const juce::String& welcome)
{
    keepLastLines (file);
    return std::make_unique<juce::FileLogger> (file, welcome);
}

juce::String getStartLine (const juce::String& pluginTypeName)
{
    const auto host = platform::getExecutableFileName().upToLastOccurrenceOf (".", false, false);
    return juce::String (getProductNames().display) + " v" + getProductNames().version + " " + pluginTypeName +
           " Windows RELEASE intel 64bit, host = '" + host + "', user = '" + platform::getComputerName() + "'";
}

}   // namespace

int OxJuceProcessorBase::getInstanceCount() noexcept
{
    return instanceCount;
}

void OxJuceProcessorBase::openSupportLog()
{
    if (! (readSettingFloat ("ExportSupport", 0.0) > 0.0f))
        return;

    const auto folder = platform::getUserDocumentsFolder().getChildFile (kMakerFolder);
    const juce::ScopedLock lock (logsLock);
    logger =
        openLog (folder.getChildFile (getProductNames().display).getChildFile ("OxSupportLog.log"), "OxSupportLog");

    // Straight into this file: what other threads log meanwhile still goes to the shared one.
    logger->logMessage (makeMachineStamp (platform::getComputerName()));
}

void OxJuceProcessorBase::openSharedLog()
{
    const juce::ScopedLock lock (logsLock);

    if (instanceCount == 0)
    {
        const auto folder = platform::getUserApplicationDataFolder().getChildFile (kMakerFolder);
        sharedLogger = openLog (folder.getChildFile ("OxLog.log"), getStartLine (pluginTypeName)).release();
        juce::Logger::setCurrentLogger (sharedLogger);
    }

    ++instanceCount;
}

void OxJuceProcessorBase::closeLogs()
{
    const juce::ScopedLock lock (logsLock);

    if (--instanceCount == 0)
    {
        // A logger that somebody else has made current since stays so.
        if (juce::Logger::getCurrentLogger() == sharedLogger)
            juce::Logger::setCurrentLogger (nullptr);

        delete std::exchange (sharedLogger, nullptr);
    }

    logger.reset();
}

void OxJuceProcessorBase::logParam (int id)
{
    juce::Logger::writeToLog (juce::String (id) + ". " + getParamKey (id) + "\t=\t" +
                              juce::String (parameter (id).value));
}

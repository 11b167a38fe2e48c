// SPDX-License-Identifier: GPL-3.0-or-later
// The life of an instance, who it is, and the way of a host's call to the room that answers it.
#include "adapters/vst2/JuceVSTWrapper.h"

#include <cstring>
#include <deque>
#include <mutex>

namespace
{

constexpr const char* kProduct = "ORVEX DuoJudge";
constexpr const char* kVendor = "ORVEX Audio";
constexpr int kVersion = 1120, kNumChannels = 2, kTimerHertz = 4;
constexpr std::size_t kNameSize = 64;   // bytes that hosts give to the name of a product or a vendor

/** Hosts call effects that they have closed, and end with effects in place: the records stay for good. */
t_fstEffect& makeRecord()
{
    static std::mutex mutex;
    static auto& records = *new std::deque<t_fstEffect>;
    const std::lock_guard<std::mutex> lock (mutex);
    return records.emplace_back();
}

}   // namespace

t_fstEffect* JuceVSTWrapper::create (audioMasterCallback host)
{
    if (host == nullptr || host (nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) == 0)
        return nullptr;

    return &(new JuceVSTWrapper (host))->effect;
}

JuceVSTWrapper::JuceVSTWrapper (audioMasterCallback ownHost) :
    host (ownHost), effect (makeRecord()), processor (new AdaptedProcessor (OxJuceProcessorBase::typeVst))
{
    effect.magic = kEffectMagic;
    effect.dispatcher = dispatch;
    effect.setParameter = setParameter;
    effect.getParameter = getParameter;
    effect.processReplacing = processReplacing;
    effect.numPrograms = judge().getNumPrograms();
    effect.numParams = judge().getNumParameters();
    effect.numInputs = effect.numOutputs = kNumChannels;
    effect.flags = effFlagsHasEditor | effFlagsCanReplacing | effFlagsProgramChunks;
    effect.initialDelay = judge().getLatencySamples();
    effect.uniqueID = CCONST ('Q', 'Y', 'W', '0');
    effect.version = kVersion;
    effect.object = this;

    judge().setRateAndBufferSizeDetails (sampleRate, blockSize);
    judge().setPlayHead (this);
    processor->addListener (*this);
    startTimerHz (kTimerHertz);
}

JuceVSTWrapper::~JuceVSTWrapper()
{
    effect.object = nullptr;
    closeEditor();

    {
        const MessageThread::Lock lock;   // no call of the timer is under way there
        stopTimer();
        judge().setPlayHead (nullptr);
    }

    processor->removeListener (*this);
}

JuceVSTWrapper* JuceVSTWrapper::of (t_fstEffect* effect)
{
    return effect != nullptr ? static_cast<JuceVSTWrapper*> (effect->object) : nullptr;
}

t_fstPtrInt JuceVSTWrapper::dispatch (t_fstEffect* effect, int opcode, int index, t_fstPtrInt value,
                                      void* const pointer, float opt)
{
    auto* const wrapper = of (effect);

    if (wrapper == nullptr)
        return 0;

    if (opcode == effClose)
    {
        delete wrapper;
        return 1;
    }

    for (const auto room :
         { &JuceVSTWrapper::answerIdentity, &JuceVSTWrapper::answerParameters, &JuceVSTWrapper::answerPrograms,
           &JuceVSTWrapper::answerState, &JuceVSTWrapper::answerLayout, &JuceVSTWrapper::answerProcess,
           &JuceVSTWrapper::answerView })
        if (const auto answer = (wrapper->*room) ({ opcode, index, value, pointer, opt }))
            return *answer;

    return 0;
}

t_fstPtrInt JuceVSTWrapper::callHost (int opcode, int index, t_fstPtrInt value, void* pointer, float opt)
{
    return host (&effect, opcode, index, value, pointer, opt);
}

t_fstPtrInt JuceVSTWrapper::give (const juce::String& text, void* place, std::size_t size)
{
    if (place == nullptr)
        return 0;

    text.copyToUTF8 (static_cast<char*> (place), size);
    return 1;
}

JuceVSTWrapper::Answer JuceVSTWrapper::answerIdentity (const Call& call)
{
    switch (call.opcode)
    {
        case effGetEffectName:
        case effGetProductString:
            return give (kProduct, call.pointer, kNameSize);
        case effGetVendorString:
            return give (kVendor, call.pointer, kNameSize);
        case effGetVendorVersion:
            return kVersion;
        case effGetVstVersion:
            return kVstVersion;
        case effIdentify:
            return CCONST ('N', 'v', 'E', 'f');
        case effGetPlugCategory:
            return kPlugCategEffect;
        case effGetCurrentMidiProgram:
            return -1;
        case effCanDo:
            return call.pointer != nullptr ? canDo (static_cast<const char*> (call.pointer)) : 0;
        case effVendorSpecific:
            return judge().handleVendorCommand (call.index, static_cast<juce::int32> (call.value), call.pointer,
                                                call.opt);
        default:
            return {};
    }
}

t_fstPtrInt JuceVSTWrapper::canDo (const char* text)
{
    const auto isOneOf = [text] (std::initializer_list<const char*> names)
    {
        return std::any_of (names.begin(), names.end(),
                            [text] (const char* name) { return std::strcmp (text, name) == 0; });
    };

    if (isOneOf ({ "receiveVstTimeInfo", "conformsToWindowRules", "bypass" }))
        return 1;

    const auto refused = isOneOf ({ "receiveVstEvents", "receiveVstMidiEvent", "receiveVstMidiEvents", "sendVstEvents",
                                    "sendVstMidiEvent", "sendVstMidiEvents", "openCloseAnyThread" });
    return refused ? -1 : 0;
}

void JuceVSTWrapper::audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails& details)
{
    if (details.latencyChanged)
    {
        effect.initialDelay = judge().getLatencySamples();
        latencyChanged = true;
    }

    if (details.parameterInfoChanged || details.programChanged)
        displayChanged = true;
}

void JuceVSTWrapper::timerCallback()
{
    // Not from inside the calls that changed it: hosts answer these by calls of their own.
    for (const auto& [changed, opcode] :
         { std::pair (&displayChanged, int (vst2::hostUpdateDisplay)), { &latencyChanged, int (vst2::hostIOChanged) } })
        if (changed->exchange (false))
            MessageThread::callHost ([call = host, record = &effect, number = opcode]
                                     { call (record, number, 0, 0, nullptr, 0.0f); });

    constexpr juce::uint32 chunkLife = 2000;   // milliseconds
    const juce::ScopedLock lock (chunkLock);

    if (chunk.getSize() > 0 && juce::Time::getMillisecondCounter() - chunkTime > chunkLife)
        chunk.reset();
}

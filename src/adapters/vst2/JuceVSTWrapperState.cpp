// SPDX-License-Identifier: GPL-3.0-or-later
// The chunks that a session or a preset of the host holds.
#include "adapters/vst2/JuceVSTWrapper.h"

JuceVSTWrapper::Answer JuceVSTWrapper::answerState (const Call& call)
{
    switch (call.opcode)
    {
        case effGetChunk:
            return giveChunk (call.index != 0, static_cast<void**> (call.pointer));
        case effSetChunk:
            takeChunk (call.index != 0, call.pointer, call.value);
            return 0;
        default:
            return {};
    }
}

t_fstPtrInt JuceVSTWrapper::giveChunk (bool programAlone, void** place)
{
    if (place == nullptr)
        return 0;

    juce::MemoryBlock block;

    if (programAlone)
        judge().getCurrentProgramStateInformation (block);
    else
        judge().getStateInformation (block);

    const juce::ScopedLock lock (chunkLock);
    chunk.swapWith (block);
    chunkTime = juce::Time::getMillisecondCounter();
    *place = chunk.getData();
    return static_cast<t_fstPtrInt> (chunk.getSize());
}

void JuceVSTWrapper::takeChunk (bool programAlone, const void* data, t_fstPtrInt size)
{
    if (data == nullptr || size <= 0 || size > std::numeric_limits<int>::max())
        return;

    if (programAlone)
        judge().setCurrentProgramStateInformation (data, static_cast<int> (size));
    else
        judge().setStateInformation (data, static_cast<int> (size));
}

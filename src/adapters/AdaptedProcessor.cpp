// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/AdaptedProcessor.h"

#include "engine/CreatePluginFilter.h"

AdaptedProcessor::AdaptedProcessor (int wrapperType)
{
    const MessageThread::Lock lock;
    processor = createPluginFilter (wrapperType);
    processor->getHostNotices().setRunner (MessageThread::callHost);
}

void AdaptedProcessor::removeListener (juce::AudioProcessorListener& listener)
{
    processor->removeListener (&listener);
    processor->getHostNotices().finish();
}

juce::AudioChannelSet AdaptedProcessor::layoutOf (int numChannels)
{
    using Set = juce::AudioChannelSet;

    switch (numChannels)
    {
        case 1:
            return Set::mono();
        case 2:
            return Set::stereo();
        case 3:
            return Set::createLCR();
        case 4:
            return Set::createLCRS();
        case 5:
            return Set::create5point0();
        case 6:
            return Set::create5point1();
        case 7:
            return Set::create6point1();
        case 8:
            return Set::create7point1();
        default:
            return Set::discreteChannels (numChannels);
    }
}

bool AdaptedProcessor::configure (double sampleRate, int blockSize, const juce::AudioChannelSet& input,
                                  const juce::AudioChannelSet& output)
{
    if (! (sampleRate > 0.0))
        return false;

    processor->setRateAndBufferSizeDetails (sampleRate, blockSize);

    juce::AudioProcessor::BusesLayout layout;
    layout.inputBuses.add (input);
    layout.outputBuses.add (output);
    processor->setBusesLayout (layout);   // runs `numChannelsChanged` if it changes them

    processor->prepareToPlay (sampleRate, blockSize);
    return true;
}

bool AdaptedProcessor::process (const float* const* inputs, float* const* outputs, int numChannels, int numSamples,
                                Mode mode)
{
    for (int channel = 0; channel < numChannels; ++channel)
        if (inputs[channel] == nullptr || outputs[channel] == nullptr)
            return false;

    for (int channel = 0; channel < numChannels; ++channel)
        if (inputs[channel] != outputs[channel])
            std::copy_n (inputs[channel], numSamples, outputs[channel]);

    juce::AudioSampleBuffer block (outputs, numChannels, numSamples);

    if (mode == Mode::analysis)
        processor->analyseOfflineInChunks (block, midi);
    else if (mode == Mode::render)
        processor->renderOfflineInChunks (block, midi);
    else if (bypass)
        processor->processBlockBypassed (block, midi);
    else
        processor->processBlock (block, midi);

    return true;
}

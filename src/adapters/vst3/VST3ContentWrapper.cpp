// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/VST3ContentWrapper.h"

#include "adapters/vst3/VST3Editor.h"

namespace Steinberg
{
namespace Vst
{

VST3ContentWrapper::VST3ContentWrapper (VST3Editor& ownView, juce::AudioProcessorEditor& ownEditor) :
    ContentWrapper (ownEditor), view (ownView)
{
}

void VST3ContentWrapper::requestSize (int width, int height)
{
    view.requestSize (width, height);
}

}   // namespace Vst
}   // namespace Steinberg

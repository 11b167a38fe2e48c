// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/ContentWrapper.h"

namespace Steinberg
{
namespace Vst
{

class VST3Editor;

/** The content of a view [message thread]. */
class VST3ContentWrapper : public ContentWrapper
{
public:
    VST3ContentWrapper (VST3Editor& ownView, juce::AudioProcessorEditor& ownEditor);

private:
    void requestSize (int width, int height) override;

    VST3Editor& view;
};

}   // namespace Vst
}   // namespace Steinberg

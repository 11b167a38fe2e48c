// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/vst/vsttypes.h>

namespace Steinberg
{
namespace Vst
{

/** The host's numbers for what is no parameter of the processor; a parameter's number is its id. */
constexpr ParamID kBypassTag = 0x62706173;    // 'bpas'
constexpr ParamID kProgramTag = 0x70727374;   // 'prst', which some hosts ask for unseen

}   // namespace Vst
}   // namespace Steinberg

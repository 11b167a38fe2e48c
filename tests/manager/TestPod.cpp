// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

// The loader's half of a pod needs the toolkit, which stays out of these tests: they connect by themselves.
// clang-format off
baylink::IPod::~IPod() = default;
void baylink::IPod::connect (int) {}
const char* baylink::IPod::getPodName() { return ""; }
void baylink::IPod::onPodRemoved (PodId) {}
bool baylink::IPod::getPodFlag() { return false; }

// SPDX-License-Identifier: GPL-3.0-or-later
// What a host finds in the shared object: the factory, and the calls around a module's life.
#include "adapters/Export.h"
#include "adapters/vst3/VST3Controller.h"
#include "adapters/vst3/VST3Processor.h"
#include "adapters/vst3/sdk/PluginFactory.h"

#include <pluginterfaces/vst/ivstaudioprocessor.h>

using namespace Steinberg;

namespace
{

PClassInfo2 describe (const FUID& cid, const char* category)
{
    constexpr int32 noFlags = 0;
    TUID id;
    cid.toTUID (id);
    return PClassInfo2 (id, PClassInfo::kManyInstances, category, "ORVEX DuoJudge", noFlags, "Fx|Other",
                        getProductNames().maker, getProductNames().version, "VST 3.6.5");
}

IPtr<CPluginFactory> makeFactory()
{
    const auto& names = getProductNames();
    const auto mail = "mailto:" + juce::String (names.support);
    auto factory =
        owned (new CPluginFactory (PFactoryInfo (names.maker, names.server, mail.toRawUTF8(), PFactoryInfo::kUnicode)));
    factory->registerClass (describe (Vst::VST3Processor::cid, kVstAudioEffectClass), Vst::VST3Processor::create);
    factory->registerClass (describe (Vst::VST3Controller::cid, kVstComponentControllerClass),
                            Vst::VST3Controller::create);
    return factory;
}

}   // namespace

DUO_EXPORT IPluginFactory* PLUGIN_API GetPluginFactory();
DUO_EXPORT bool ModuleEntry (void*);
DUO_EXPORT bool ModuleExit();
DUO_EXPORT bool InitDll();
DUO_EXPORT bool ExitDll();

IPluginFactory* PLUGIN_API GetPluginFactory()
{
    static const auto factory = makeFactory();
    factory->addRef();
    return factory;
}

bool ModuleEntry (void*)
{
    return true;
}

bool ModuleExit()
{
    return true;
}

bool InitDll()
{
    return true;
}

bool ExitDll()
{
    return true;
}

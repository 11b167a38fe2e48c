// SPDX-License-Identifier: GPL-3.0-or-later
// What a host finds in the shared object. Objects are made by the creators of the description, never by a class factory.
#include "adapters/Export.h"
#include "adapters/aax/Description.h"
#include "adapters/aax/sdk/AAX_CObject.h"

DUO_EXPORT AAX_Result ACFStartup();
DUO_EXPORT AAX_Result ACFShutdown();
DUO_EXPORT AAX_Result ACFRegisterPlugin (AAX_ICollection* collection);
DUO_EXPORT AAX_Result ACFRegisterComponent (AAX_IEffectDescriptor* effect, std::int32_t index);
DUO_EXPORT AAX_Result ACFGetClassFactory (void** factory);
DUO_EXPORT AAX_Result ACFCanUnloadNow();
DUO_EXPORT AAX_Result ACFGetSDKVersion (std::uint64_t* version);

AAX_Result ACFStartup()
{
    return AAX_SUCCESS;   // the first object brings the toolkit up, and the last one down
}

AAX_Result ACFShutdown()
{
    return ACFCanUnloadNow();
}

AAX_Result ACFRegisterPlugin (AAX_ICollection* collection)
{
    return collection != nullptr ? AAXClasses::describe (*collection) : AAX_ERROR_NULL_OBJECT;
}

AAX_Result ACFRegisterComponent (AAX_IEffectDescriptor* effect, std::int32_t index)
{
    return effect != nullptr ? AAXClasses::describeType (*effect, index) : AAX_ERROR_NULL_OBJECT;
}

AAX_Result ACFGetClassFactory (void** factory)
{
    if (factory != nullptr)
        *factory = nullptr;

    return AAX_ERROR_INVALID_ID;
}

AAX_Result ACFCanUnloadNow()
{
    const auto numObjects = AAX_CObject<AAX_IEffectParameters>::count + AAX_CObject<AAX_IEffectGUI>::count +
                            AAX_CObject<AAX_IHostProcessor>::count;
    return numObjects == 0 ? AAX_SUCCESS : AAX_ERROR_NULL_OBJECT;
}

AAX_Result ACFGetSDKVersion (std::uint64_t* version)
{
    constexpr std::uint64_t ownVersion = 1;

    if (version == nullptr)
        return AAX_ERROR_NULL_OBJECT;

    *version = ownVersion;
    return AAX_SUCCESS;
}

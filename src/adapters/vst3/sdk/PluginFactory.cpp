// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/sdk/PluginFactory.h"

#include <algorithm>

namespace Steinberg
{

void CPluginFactory::registerClass (const PClassInfo2& info, Create create, void* context)
{
    classes.push_back ({ info, create, context });
}

tresult PLUGIN_API CPluginFactory::queryInterface (const TUID wanted, void** object)
{
    if (object == nullptr)
        return kInvalidArgument;

    const FUID known[] { FUnknown::iid, IPluginFactory::iid, IPluginFactory2::iid, IPluginFactory3::iid };

    if (std::none_of (std::begin (known), std::end (known),
                      [wanted] (const FUID& one) { return FUnknownPrivate::iidEqual (wanted, one); }))
    {
        *object = nullptr;
        return kNoInterface;
    }

    addRef();
    *object = static_cast<IPluginFactory3*> (this);
    return kResultOk;
}

uint32 PLUGIN_API CPluginFactory::addRef()
{
    return ++references;
}

uint32 PLUGIN_API CPluginFactory::release()
{
    const auto left = --references;

    if (left == 0)
        delete this;

    return left;
}

tresult PLUGIN_API CPluginFactory::getFactoryInfo (PFactoryInfo* info)
{
    if (info == nullptr)
        return kInvalidArgument;

    *info = factoryInfo;
    return kResultOk;
}

const CPluginFactory::Entry* CPluginFactory::find (int32 index) const
{
    return index >= 0 && index < static_cast<int32> (classes.size()) ? &classes[static_cast<std::size_t> (index)]
                                                                     : nullptr;
}

tresult PLUGIN_API CPluginFactory::getClassInfo (int32 index, PClassInfo* info)
{
    const auto* const entry = find (index);

    if (entry == nullptr || info == nullptr)
        return kInvalidArgument;

    *info = PClassInfo (entry->info.cid, entry->info.cardinality, entry->info.category, entry->info.name);
    return kResultOk;
}

tresult PLUGIN_API CPluginFactory::getClassInfo2 (int32 index, PClassInfo2* info)
{
    const auto* const entry = find (index);

    if (entry == nullptr || info == nullptr)
        return kInvalidArgument;

    *info = entry->info;
    return kResultOk;
}

tresult PLUGIN_API CPluginFactory::getClassInfoUnicode (int32 index, PClassInfoW* info)
{
    const auto* const entry = find (index);

    if (entry == nullptr || info == nullptr)
        return kInvalidArgument;

    info->fromAscii (entry->info);
    return kResultOk;
}

tresult PLUGIN_API CPluginFactory::createInstance (FIDString classId, FIDString interfaceId, void** object)
{
    if (object == nullptr)
        return kInvalidArgument;

    *object = nullptr;

    if (classId == nullptr || interfaceId == nullptr)
        return kInvalidArgument;

    const auto entry =
        std::find_if (classes.begin(), classes.end(),
                      [classId] (const Entry& one) { return FUnknownPrivate::iidEqual (classId, one.info.cid); });

    if (entry == classes.end())
        return kNoInterface;

    auto* const made = entry->create (entry->context);

    if (made == nullptr)
        return kOutOfMemory;

    const auto result = made->queryInterface (interfaceId, object);
    made->release();
    return result;
}

}   // namespace Steinberg

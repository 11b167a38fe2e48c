// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/base/ipluginbase.h>

#include <atomic>
#include <vector>

namespace Steinberg
{

/** What a module tells the host of its classes, and where the host has them made: the SDK's factory of this name, which
    the toolkit's copy of the SDK comes without.

    Built once, with all its classes, and read from any thread afterwards. */
class CPluginFactory : public IPluginFactory3
{
public:
    using Create = FUnknown* (*) (void* context);

    explicit CPluginFactory (const PFactoryInfo& info) : factoryInfo (info) {}
    virtual ~CPluginFactory() = default;

    CPluginFactory (const CPluginFactory&) = delete;
    CPluginFactory& operator= (const CPluginFactory&) = delete;

    /** Adds a class. @param create makes an object with one reference, which goes to the caller */
    void registerClass (const PClassInfo2& info, Create create, void* context = nullptr);

    // FUnknown
    tresult PLUGIN_API queryInterface (const TUID wanted, void** object) override;
    uint32 PLUGIN_API addRef() override;
    uint32 PLUGIN_API release() override;

    // IPluginFactory to IPluginFactory3
    tresult PLUGIN_API getFactoryInfo (PFactoryInfo* info) override;
    int32 PLUGIN_API countClasses() override { return static_cast<int32> (classes.size()); }
    tresult PLUGIN_API getClassInfo (int32 index, PClassInfo* info) override;
    tresult PLUGIN_API getClassInfo2 (int32 index, PClassInfo2* info) override;
    tresult PLUGIN_API getClassInfoUnicode (int32 index, PClassInfoW* info) override;
    tresult PLUGIN_API createInstance (FIDString classId, FIDString interfaceId, void** object) override;
    tresult PLUGIN_API setHostContext (FUnknown*) override { return kNotImplemented; }

private:
    struct Entry
    {
        PClassInfo2 info;
        Create create = nullptr;
        void* context = nullptr;
    };

    const Entry* find (int32 index) const;

    const PFactoryInfo factoryInfo;
    std::vector<Entry> classes;
    std::atomic<uint32> references { 1 };
};

}   // namespace Steinberg

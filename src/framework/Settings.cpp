// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Settings.h"

#include "framework/ProductNames.h"
#include "platform/Registry.h"

using namespace platform;

juce::CriticalSection settingsLock;

namespace
{

constexpr auto* kMakerPath = "OrVex Audio";

registry::Value lastRead;   // guarded by settingsLock

juce::String toKey (const juce::String& subPath)
{
    return "SOFTWARE\\" + subPath;
}

juce::String readText (const juce::String& subPath, const juce::String& name)
{
    const juce::ScopedLock lock (settingsLock);
    int size = 0;
    const auto* const text = static_cast<const char*> (readSettingRaw (subPath, name, size));

    if (text == nullptr || lastRead.kind != registry::Kind::text ||
        ! juce::CharPointer_UTF8::isValidString (text, size))
        return {};

    return juce::String::fromUTF8 (text, static_cast<int> (::strnlen (text, static_cast<std::size_t> (size))));
}

bool writeSetting (const juce::String& name, registry::Kind kind, const void* data, int size)
{
    try
    {
        const auto key = toKey (getProductSettingsPath());

        if (! registry::write (registry::Root::user, key, name, kind, data, size))
            return false;

        registry::write (registry::Root::machine, key, name, kind, data, size);   // mostly not allowed
        return true;
    }
    catch (...)
    {
        return false;
    }
}

int deleteFromBothRoots (const juce::String& key, const juce::String& name)
{
    const std::tuple<registry::Root, int, int> roots[] { { registry::Root::user, -1, -2 },
                                                         { registry::Root::machine, -3, -4 } };

    for (const auto& [root, codeOfNoKey, codeOfRefusal] : roots)
    {
        const auto result = registry::remove (root, key, name);

        if (result != registry::Deletion::done)
            return result == registry::Deletion::noKey ? codeOfNoKey : codeOfRefusal;
    }

    return 1;
}

}   // namespace

juce::String getProductSettingsPath()
{
    return juce::String ("ORVEX Audio\\") + getProductNames().settings;
}

const void* readSettingRaw (const juce::String& subPath, const juce::String& name, int& size)
{
    const juce::ScopedLock lock (settingsLock);
    size = 0;

    try
    {
        for (const auto root : { registry::Root::user, registry::Root::machine })
        {
            if (registry::read (root, toKey (subPath), name, lastRead))
            {
                size = lastRead.size;
                return lastRead.bytes.data();
            }
        }
    }
    catch (...)
    {
        return nullptr;
    }

    return nullptr;
}

float readSettingFloat (const juce::String& name, double defaultValue)
{
    const juce::ScopedLock lock (settingsLock);
    int size = 0;
    const auto* const bytes = readSettingRaw (getProductSettingsPath(), name, size);

    if (bytes == nullptr || lastRead.kind != registry::Kind::binary || size != sizeof (float))
        return static_cast<float> (defaultValue);

    const auto bits = juce::ByteOrder::littleEndianInt (bytes);
    float value = 0.0f;
    std::memcpy (&value, &bits, sizeof (value));
    return value;
}

juce::String readSettingText (const juce::String& name)
{
    return readText (getProductSettingsPath(), name);
}

juce::String readMakerSetting (const juce::String& name)
{
    return readText (kMakerPath, name);
}

bool writeSettingFloat (const juce::String& name, float value)
{
    juce::uint32 bits = 0;
    std::memcpy (&bits, &value, sizeof (value));
    bits = juce::ByteOrder::swapIfBigEndian (bits);
    return writeSetting (name, registry::Kind::binary, &bits, sizeof (bits));
}

bool writeSettingText (const juce::String& name, const juce::String& text)
{
    return writeSetting (name, registry::Kind::text, text.toRawUTF8(), static_cast<int> (text.getNumBytesAsUTF8()) + 1);
}

int deleteSetting (const juce::String& subPath, const juce::String& name)
{
    try
    {
        if (subPath.isEmpty())
            return 0;

        const auto key = toKey (subPath);

        try
        {
            return deleteFromBothRoots (key, name);
        }
        catch (...)
        {
            return -5;
        }
    }
    catch (...)
    {
        return -6;
    }
}

juce::String getInstallPath (const juce::String& name)
{
    return readSettingText ("Install Folder") + "\\" + name;
}

juce::String getManualPath()
{
    return getInstallPath (juce::String (getProductNames().display) + " Manual.pdf");
}

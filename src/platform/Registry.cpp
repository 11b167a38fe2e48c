// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Registry.h"

#include "platform/Files.h"
#include "platform/KnownFolders.h"

#include <cerrno>
#include <clocale>
#include <cstring>
#include <string>

#include <locale.h>
#include <unistd.h>

namespace platform::registry
{
namespace
{

constexpr int kHeaderSize = 4;                // bytes
constexpr std::size_t kMaxNameLength = 200;   // bytes; file systems allow 255

const char* headerOf (Kind kind)
{
    return kind == Kind::binary ? "bin\n" : "txt\n";
}

/** Small letters whatever the host's locale says, or two hosts would look for a value in two places. */
juce::String fold (const juce::String& name)
{
    using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, decltype (&::freelocale)>;
    static const Locale unicode (::newlocale (LC_CTYPE_MASK, "C.UTF-8", nullptr), ::freelocale);
    const auto previous = ::uselocale (unicode.get());
    const auto folded = name.toLowerCase();
    ::uselocale (previous);
    return folded;
}

/** A name as it stands in the file system: each byte that is not plain as %xx, the end of a long one as a hash. */
juce::String encode (const juce::String& name)
{
    constexpr auto* plain = "abcdefghijklmnopqrstuvwxyz0123456789 _-";
    constexpr auto* digits = "0123456789abcdef";
    std::string encoded;

    for (const auto byte : fold (name).toStdString())
    {
        if (std::strchr (plain, byte) != nullptr)
            encoded += byte;
        else
            encoded.append ({ '%', digits[(byte >> 4) & 15], digits[byte & 15] });
    }

    if (encoded.size() <= kMaxNameLength)
        return encoded;

    const auto hash = juce::String::toHexString (juce::String (encoded).hashCode64());
    return juce::String (encoded.substr (0, kMaxNameLength)) + "~" + hash;
}

juce::File getFolder (Root root, const juce::String& key)
{
    auto folder = root == Root::user ? getUserConfigurationFolder() : getMachineConfigurationFolder();
    folder = folder.getChildFile ("ORVEX Audio/Registry");

    for (const auto& part : juce::StringArray::fromTokens (key, "\\", {}))
        folder = folder.getChildFile (encode (part));

    return folder;
}

/** No key and no half-written value ends in the suffix, as a point in a name is encoded. */
juce::File getFile (Root root, const juce::String& key, const juce::String& name)
{
    return getFolder (root, key).getChildFile (encode (name) + ".value");
}

}   // namespace

bool read (Root root, const juce::String& key, const juce::String& name, Value& value)
{
    juce::FileInputStream file (getFile (root, key, name));
    std::array<char, kHeaderSize> header {};

    if (! file.openedOk() || file.read (header.data(), kHeaderSize) != kHeaderSize)
        return false;

    const auto is = [&] (Kind kind) { return std::memcmp (header.data(), headerOf (kind), kHeaderSize) == 0; };
    value.kind = is (Kind::text) ? Kind::text : Kind::binary;
    value.size = file.read (value.bytes.data(), kMaxValueSize);
    char more = 0;
    return is (value.kind) && file.read (&more, 1) == 0 && file.getStatus().wasOk();
}

bool write (Root root, const juce::String& key, const juce::String& name, Kind kind, const void* data, int size)
{
    std::string content (headerOf (kind), kHeaderSize);
    content.append (static_cast<const char*> (data), static_cast<std::size_t> (size));
    return replaceFile (getFile (root, key, name), content.data(), content.size());
}

Deletion remove (Root root, const juce::String& key, const juce::String& name)
{
    const auto folder = getFolder (root, key);

    if (! folder.isDirectory() || ::access (folder.getFullPathName().toRawUTF8(), W_OK | X_OK) != 0)
        return Deletion::noKey;

    const auto file = getFile (root, key, name).getFullPathName();
    return ::unlink (file.toRawUTF8()) == 0 || errno == ENOENT ? Deletion::done : Deletion::refused;
}

}   // namespace platform::registry

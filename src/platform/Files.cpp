// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform
{
namespace
{

bool writeAll (int file, const void* data, std::size_t size)
{
    const auto* next = static_cast<const char*> (data);

    while (size > 0)
    {
        const auto written = ::write (file, next, size);

        if (written < 0 && errno != EINTR)
            return false;

        next += std::max<ssize_t> (written, 0);
        size -= static_cast<std::size_t> (std::max<ssize_t> (written, 0));
    }

    return true;
}

}   // namespace

juce::File getFileAt (const juce::String& path)
{
    const auto native = path.replaceCharacter ('\\', '/');
    return native.startsWithChar ('/') ? juce::File (native) : juce::File();
}

bool readFile (const juce::File& file, juce::MemoryBlock& content, juce::int64 maxSize)
{
    // Opening what is no plain file may wait for ever, and reading it may never end.
    std::error_code error;

    if (! std::filesystem::is_regular_file (file.getFullPathName().toStdString(), error) || file.getSize() > maxSize)
        return false;

    juce::FileInputStream stream (file);
    content.reset();
    return stream.openedOk() && (stream.readIntoMemoryBlock (content, maxSize), stream.getStatus().wasOk());
}

bool replaceFile (const juce::File& file, const void* data, std::size_t size)
{
    const auto folder = file.getParentDirectory().getFullPathName().toStdString();
    std::error_code ignored;   // the next step tells
    std::filesystem::create_directories (folder, ignored);

    auto temporary = folder + "/.new-XXXXXX";
    const auto handle = ::mkostemp (temporary.data(), O_CLOEXEC);

    if (handle < 0)
        return false;

    constexpr mode_t readableByAll = 0644;
    const auto written =
        ::fchmod (handle, readableByAll) == 0 && writeAll (handle, data, size) && ::fsync (handle) == 0;
    const auto closed = ::close (handle) == 0;

    if (written && closed && ::rename (temporary.c_str(), file.getFullPathName().toRawUTF8()) == 0)
        return true;

    ::unlink (temporary.c_str());
    return false;
}

}   // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/DriverCheck.h"

#include "platform/EmbeddedWindow.h"

#include <juce_gui_basics/juce_gui_basics.h>
#include <juce_opengl/juce_opengl.h>

using namespace juce::gl;

namespace
{

constexpr auto* kWarning =
    "The plugin has detected that your graphics driver does not support OpenGL2.0 and above. If your plugin does not "
    "look right, please update your graphics drivers. ";

/** The editor may go while the box is open, so nobody waits for it. */
void warn()
{
    juce::MessageManager::callAsync (
        []
        {
            const platform::ScopedWindowErrorGuard guard;
            juce::AlertWindow::showMessageBoxAsync (
                juce::MessageBoxIconType::WarningIcon, "Warning", kWarning, "OK", nullptr,
                juce::ModalCallbackFunction::create (
                    [] (int result) {
                        juce::Logger::writeToLog ("OpenGL incompatibility detected, windows message returned: " +
                                                  juce::String (result));
                    }));
        });
}

}   // namespace

bool driverCheck::isGoodEnough (const char* version, const char* extensions)
{
    constexpr int neededVersion = 2;
    return juce::String (version).getIntValue() >= neededVersion ||
           juce::String (extensions).contains ("GL_ARB_texture_non_power_of_two");
}

void driverCheck::runOnce()
{
    static std::atomic<bool> done { false };

    if (done.exchange (true))
        return;

    const auto ask = [] (GLenum name) { return reinterpret_cast<const char*> (glGetString (name)); };

    if (! isGoodEnough (ask (GL_VERSION), ask (GL_EXTENSIONS)))
        warn();
}

# SPDX-License-Identifier: GPL-3.0-or-later
# The toolkit's modules, compiled once into one static library that every target links.
# Its headers reach our code as system headers.
find_package(JUCE 7.0.5 CONFIG REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
# The distribution's toolkit leaves its bundled codecs out and names none of their libraries.
pkg_check_modules(DuoCodecs REQUIRED IMPORTED_TARGET libpng libjpeg flac vorbis vorbisenc vorbisfile ogg zlib libcurl)

add_library(duo_juce STATIC)
target_link_libraries(duo_juce
    PRIVATE
        juce::juce_audio_utils juce::juce_audio_formats juce::juce_audio_devices juce::juce_audio_processors
        juce::juce_data_structures juce::juce_gui_extra juce::juce_opengl
    PUBLIC PkgConfig::DuoCodecs Threads::Threads)
target_compile_definitions(duo_juce PUBLIC
    JUCE_USE_CURL=1
    JUCE_LOAD_CURL_SYMBOLS_LAZILY=1
    JUCE_WEB_BROWSER=0
    JUCE_PLUGINHOST_VST3=1
    JUCE_STRICT_REFCOUNTEDPOINTER=1
    JUCE_DISPLAY_SPLASH_SCREEN=0
    JUCE_REPORT_APP_USAGE=0
    JUCE_MODULE_AVAILABLE_juce_audio_plugin_client=0
    # The framework reports the end of a gesture whether or not it began: hosts take that, the check does not.
    JUCE_DISABLE_AUDIOPROCESSOR_BEGIN_END_GESTURE_CHECKING=1
    JUCE_STANDALONE_APPLICATION=0)
target_compile_definitions(duo_juce INTERFACE $<TARGET_PROPERTY:duo_juce,COMPILE_DEFINITIONS>)
target_include_directories(duo_juce SYSTEM INTERFACE $<TARGET_PROPERTY:duo_juce,INCLUDE_DIRECTORIES>)
# The toolkit's own code is not ours to mend; -g1 keeps its share of a debug build small.
target_compile_options(duo_juce PRIVATE -w $<$<CONFIG:Debug>:-g1>)

# Its codecs shift negative numbers, which is theirs to answer for: undefined behaviour is looked for in our code alone.
if(DUO_SANITIZE MATCHES "undefined")
    target_compile_options(duo_juce PRIVATE -fno-sanitize=undefined)
endif()

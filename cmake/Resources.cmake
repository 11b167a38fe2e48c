# SPDX-License-Identifier: GPL-3.0-or-later
# duo_resources: the window's images as data by name, and the tables of the font sheets among them.
# `EmbeddedImages.h` is written at build time; it declares `resources::getNamedResource (name, sizeOut)`.
set(DUO_RESOURCES "${CMAKE_SOURCE_DIR}/src/resources")
set(duoImages
    ButtonMid ButtonVSmall SliderHandle Title
    FONT_DuoJudgeBigLetters FONT_FontText10 FONT_FontText11 FONT_FontText12 FONT_FontText14 FONT_FontText18
    FONT_FontText20 FONT_FontText22 FONT_FontText24 FONT_FontText28 FONT_FontText44)
list(TRANSFORM duoImages PREPEND "${DUO_RESOURCES}/images/")
list(TRANSFORM duoImages APPEND ".png")

juce_add_binary_data(duo_images HEADER_NAME EmbeddedImages.h NAMESPACE resources SOURCES ${duoImages})
# It forgets that the images themselves may change, and makes its list anew with each configuration, which would embed
# everything again: the list is as old as this file, which is where it comes from.
set(duoEmbedded "${CMAKE_CURRENT_BINARY_DIR}/juce_binarydata_duo_images/JuceLibraryCode")
add_custom_command(OUTPUT "${duoEmbedded}/BinaryData1.cpp" APPEND DEPENDS ${duoImages})
execute_process(COMMAND touch -r "${CMAKE_CURRENT_LIST_FILE}" "${duoEmbedded}/input_file_list" COMMAND_ERROR_IS_FATAL ANY)
set_target_properties(duo_images PROPERTIES POSITION_INDEPENDENT_CODE ON)

add_library(duo_resources STATIC
    "${DUO_RESOURCES}/GlyphTables.cpp"
    "${DUO_RESOURCES}/GlyphTables.gen.cpp")
target_include_directories(duo_resources PUBLIC "${CMAKE_SOURCE_DIR}/src")
target_link_libraries(duo_resources PUBLIC duo_images)
duo_own_code(duo_resources)

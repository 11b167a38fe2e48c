# SPDX-License-Identifier: GPL-3.0-or-later
# DUO_SANITIZE names the sanitizers that everything, the toolkit included, is compiled and linked with.
set(DUO_SANITIZE "" CACHE STRING "Comma separated sanitizers, as -fsanitize takes them")

if(DUO_SANITIZE)
    add_compile_options(-fsanitize=${DUO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all -O1 -fno-sanitize=vptr)
    add_link_options(-fsanitize=${DUO_SANITIZE})
endif()

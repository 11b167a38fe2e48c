# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian packages behind ./run and ./test, and the step that installs what is missing. Sourced by both.
# "a|b" is satisfied by either; a is installed when neither is there.

say() { printf '== %s\n' "$*"; }

# Everything is compiled with these.
buildPackages=(build-essential cmake ninja-build 'pkgconf|pkg-config')

# The toolkit's sources and its CMake package, and the free declarations of the older plug-in interface.
buildPackages+=(juce-modules-source juce-tools fst-dev)

# What the toolkit is linked with.
buildPackages+=(libasound2-dev 'libcurl4-gnutls-dev|libcurl4-openssl-dev|libcurl4-nss-dev' libflac-dev libfreetype-dev
    libgl-dev libjpeg-dev libogg-dev libpng-dev libvorbis-dev libx11-dev libxcursor-dev libxext-dev libxinerama-dev
    libxrandr-dev zlib1g-dev)

# The desk brings both recordings to one sample rate.
buildPackages+=(libsoxr-dev)

# The build is one tree: tests and benchmarks are configured with it.
buildPackages+=(libgtest-dev libbenchmark-dev python3)

# Windows, text and OpenGL on a machine that had none: the loader and Mesa's software renderer.
buildPackages+=(fonts-dejavu-core libgl1 libgl1-mesa-dri)

# ./test: a window system of its own, the tools that read our sources, and a recording.
testPackages=(xvfb openbox clang-format clang-tidy sonic-pi-samples python3-markdown weasyprint)

# ./test draws the glyph sheets and the other pictures again.
testPackages+=(python3-pil python3-freetype python3-cairo fonts-roboto-unhinted)

# ./test fuzz: a compiler with the fuzzing library, and the names in what it reports.
fuzzPackages=(clang libclang-rt-dev llvm)

# ./run: asking whether a display answers, and setting the manual.
runPackages=(x11-utils python3-markdown weasyprint)

# ./run without files: a recording and the coder of its copy.
demoPackages=(sonic-pi-samples vorbis-tools)

# missingPackages NAME...: prints those that are not installed, one a line.
missingPackages() {
    local -A installed=()
    local name choice state

    while read -r name state; do
        [[ $state == installed ]] && installed[$name]=yes
    done < <(dpkg-query -W -f '${Package} ${db:Status-Status}\n' ${@//|/ } 2>/dev/null)

    for choice; do
        for name in ${choice//|/ }; do
            [[ -n ${installed[$name]:-} ]] && continue 2
        done
        printf '%s\n' "${choice%%|*}"
    done
}

# installPackages NAME...: installs what is missing, as root or through sudo, and asks nothing.
installPackages() {
    local -a missing asRoot=()

    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This is no Debian system: taking it that the packages' contents are here"
        return 0
    fi

    mapfile -t missing < <(missingPackages "$@")
    ((${#missing[@]})) || return 0

    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            printf 'These packages are missing, and only root can install them:\n    apt-get install %s\n' "${missing[*]}" >&2
            return 1
        fi
        asRoot=(sudo)
    fi

    say "Installing ${missing[*]}"
    asRoot+=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
    "${asRoot[@]}" update </dev/null || say 'The package lists could not be brought up to date; trying with those that are here'
    "${asRoot[@]}" install -y --no-install-recommends "${missing[@]}" </dev/null
}

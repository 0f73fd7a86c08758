# shellcheck shell=bash
# What the scripts share; sourced, not run. Leaves the working folder at the root of the project.

repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$repo" || exit 1

heading()
{
    printf '\n== %s\n' "$*"
}

# Can this folder be made and written in?
writable_folder()
{
    mkdir -p "$1" 2>/dev/null && [ -w "$1" ]
}

# A compiler cache that cannot be written breaks the build: then keep one beside the build, without the odd settings.
if [ -z "${CCACHE_DIR:-}" ] && { [ -z "${HOME:-}" ] || ! writable_folder "${HOME}/.cache"; }; then
    export CCACHE_DIR="$repo/build/ccache"
elif [ -n "${CCACHE_DIR:-}" ] && ! writable_folder "$CCACHE_DIR"; then
    export CCACHE_DIR="$repo/build/ccache"
fi
# Paths below the project are hashed as relative ones, so that another clone finds the same entries.
export CCACHE_BASEDIR="$repo"
export CCACHE_NOHASHDIR=1
export CCACHE_COMPILERCHECK=content

# No window system is needed: tests that want a display start one of their own (tests/support/with_display).
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"

export CTEST_PARALLEL_LEVEL="${CTEST_PARALLEL_LEVEL:-$(nproc)}"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"

# Configures once; later the build itself sees whether it has to again.
configure()
{
    local preset="$1"
    if [ ! -f "build/$preset/build.ninja" ] || [ CMakePresets.json -nt "build/$preset/CMakeCache.txt" ]; then
        cmake --preset "$preset"
    fi
}

# Our own source files, tracked or new, as they stand in the tree.
our_files()
{
    git -c safe.directory='*' ls-files --cached --others --exclude-standard -- "$@" | while IFS= read -r file; do
        if [ -f "$file" ]; then
            printf '%s\n' "$file"
        fi
    done
}

# shellcheck shell=bash
# What the commands of this folder share; they read it with `source scripts/common.sh` in the project's folder.

# Qt takes the names of files in the encoding of the locale. Where none is set, as in a fresh container, it would
# lose the letters beyond ASCII of a folder's name.
use_utf8() {
    [[ $(locale charmap 2>/dev/null) == UTF-8 ]] && return
    export LANG=${LC_ALL:-${LANG:-C}} LC_CTYPE=C.UTF-8
    unset LC_ALL
}

# alone FOLDER COMMAND...: runs the command, or the function, while no other one works in that folder of `build`.
# What it leaves running holds no lock.
alone() {
    local lock=build/$1.lock
    shift
    mkdir -p build
    (
        flock --nonblock 9 || {
            echo "Another command works in ${lock%.lock}: waiting for its end ..."
            flock 9
        }
        "$@" 9>&-
    ) 9>"$lock"
}

# configure FOLDER [options of CMake]: a build folder that was made for a checkout in another place is begun anew.
configure() {
    local folder=build/$1 made_for
    shift
    made_for=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$folder/CMakeCache.txt" 2>/dev/null || true)
    if [[ -n $made_for && ! $made_for -ef . ]]; then
        echo "$folder was made for $made_for: beginning it anew."
        rm -rf "$folder"
    fi
    cmake "$@" >/dev/null
}

# build PRESET [options of CMake]
build() {
    alone "$1" configure_and_build "$@"
}

configure_and_build() {
    local preset=$1
    configure "$preset" --preset "$@"
    cmake --build --preset "$preset" -j "$(nproc)" -- --quiet
}

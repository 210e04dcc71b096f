# What the tests of the installed SDK share: sourced with the source and the build folder as arguments.
# What they build stays in the build folder, so that a second run compiles only what has changed.

source=$1
build=$2
work=$build/package/$(basename "$0")
mkdir -p "$work"

# A grep here reads to the end: one that leaves at the first match (-q) can end its writer, and with
# pipefail the check.
fail() { echo "$(basename "$0"): $*" >&2; exit 1; }

# Runs a command, and shows what it says only when it fails.
quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }; }

# Builds the other project with the SDK installed in a folder, and starts the plug-in there.
build_consumer()
{
    local prefix=$1
    quietly cmake -G Ninja -S "$source/tests/package/consumer" -B "$work/consumer" \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=-g0
    quietly cmake --build "$work/consumer"
    "$work/consumer/consumer" "$prefix/lib/zorv/plugins" | grep -x 'ZORV VKT Plugin' >/dev/null ||
        fail "the plug-in does not start in another project's host"
}

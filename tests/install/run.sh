#!/bin/bash
# Installs what was built in BUILD_DIR, runs a widget with that, and builds and runs a provider against it.
set -euo pipefail

build=$(realpath "$1")
sources=$(realpath "$(dirname "$0")")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
prefix=$folder/prefix

# Nothing but the installed files may help: no device, no settings, no library path.
clean() {
    env -i PATH="$PATH" HOME="$folder/home" LC_ALL=C.UTF-8 "$@"
}

# expect_output TEXT COMMAND...
expect_output() {
    local expected=$1 output
    shift
    if ! output=$(clean "$@") || [ "$output" != "$expected" ]; then
        printf '%s\nput out, instead of "%s" with status 0:\n%s\n' "$*" "$expected" "$output" >&2
        exit 1
    fi
}

quietly() {
    "$@" >"$folder/log" 2>&1 || { cat "$folder/log" >&2; exit 1; }
}

mkdir "$folder/home"
quietly cmake --install "$build" --prefix "$prefix"
expect_output $'Hello, stranger! This is run number 1.\nPictures that came with the host: 2' \
    "$prefix/bin/holm" run --unattended --device "$folder/dev" "$prefix/share/holm/widgets/hello"

quietly clean cmake -G Ninja -S "$sources/sampleprovider" -B "$folder/sample" -DCMAKE_PREFIX_PATH="$prefix"
quietly clean cmake --build "$folder/sample"
cat >"$folder/script.js" <<'SCRIPT'
greet({ mark: "?" }, function (text) {
  print(text + this.mark);
  quit(0);
});
SCRIPT
expect_output 'Hello, world!?' "$prefix/bin/holm" run --unattended --device "$folder/dev" \
    --plugin "$folder/sample/sampleprovider.so" "$folder/script.js"

#!/bin/bash
# run_examples.sh HOLM [DOCUMENT...]
#
# Runs every ```js block of the documents as a widget, with a device and an application directory of its own.
# Each has to end with status 0, and to put out the ```text block that follows it directly, if one does.
# A script that uses "widget" gets the last ```xml block before it as its widget.ui. All get the argument --once.
# Where they say localhost:8642, the sample server is meant, which is started for them at a free port.
set -euo pipefail

holm=$(realpath "$1")
shift
root=$(realpath "$(dirname "$0")/../..")
if [ $# = 0 ]; then
    set -- "$root/docs/functions.md" "$root/docs/widgets.md"
fi
folder=$(mktemp -d)
server=
trap '[ -z "$server" ] || kill "$server"; rm -rf "$folder"' EXIT
export LC_ALL=C.UTF-8 XDG_CONFIG_HOME=$folder/settings

exec {server_output}< <(exec "$(dirname "$holm")/holm-sampleserver" --port 0)
server=$!
read -r address <&"$server_output"
address=${address#http://}

# unpack DOCUMENT FOLDER: an example in line N becomes N.js in there, with N.ui and N.text where it has them.
unpack() {
    awk -v folder="$2" '
        function save(suffix, text) { printf "%s", text >(folder "/" example suffix); close(folder "/" example suffix) }
        language == "" && /^```/ { language = substr($0, 4) " "; first = NR; body = ""; next }
        language != "" && /^```/ {
            if (language == "js ") {
                example = sprintf("%05d", first)
                save(".js", body)
                if (face != "" && body ~ /(^|[^[:alnum:]_.])widget\./) save(".ui", face)
            }
            if (language == "text " && after_example) save(".text", body)
            if (language == "xml ") face = body
            after_example = language == "js "
            language = ""
            next
        }
        language != "" { body = body $0 "\n"; next }
        NF > 0 { after_example = 0 }
        END { if (language != "") { print FILENAME ":" first ": a block without an end" >"/dev/stderr"; exit 1 } }
    ' "$1"
}

# try EXAMPLE: prints what is wrong with it, if anything is.
try() {
    local example=$1 status=0
    mkdir "$example"
    mv "$example.js" "$example/widget.js"
    [ ! -e "$example.ui" ] || mv "$example.ui" "$example/widget.ui"
    cp -r "$(dirname "$holm")/../share/holm" "$example.app"
    # Through a pipe, whose end waits for programs that the example launches.
    "$holm" run --unattended --device "$example.device" --app "$example.app" "$example" --once \
        2>"$example.errors" | cat >"$example.output" || status=$?
    if [ "$status" != 0 ]; then
        echo "ended with status $status, not 0"
    elif [ -e "$example.text" ] && ! cmp -s "$example.text" "$example.output"; then
        echo "put out something else than documented"
        diff -u --label documented --label "put out" "$example.text" "$example.output" || true
    else
        return 0
    fi
    cat "$example.errors"
}

failures=0
for document in "$@"; do
    name=${document#"$root/"}
    examples=$folder/${document//\//_}
    mkdir "$examples"
    unpack "$document" "$examples"
    find "$examples" -type f -exec sed -i "s|localhost:8642/|$address|g" {} +
    count=0
    for script in "$examples"/*.js; do
        [ -e "$script" ] || continue
        count=$((count + 1))
        problem=$(try "${script%.js}")
        if [ -n "$problem" ]; then
            printf '%s:%d: %s\n' "$name" "$((10#$(basename "$script" .js)))" "$problem" >&2
            failures=$((failures + 1))
        fi
    done
    echo "$name: $count examples"
    if [ "$count" = 0 ]; then
        failures=$((failures + 1))
    fi
done
[ "$failures" = 0 ]

# shellcheck shell=bash
# Shared by run, test and .ci/run: installing what is missing, and building.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Standard output belongs to the widget or the test, so everything else goes to standard error.
tell() {
    printf '%s\n' "$*" >&2
}

fail() {
    tell "$*"
    exit 1
}

# list_packages FILE...
list_packages() {
    sed -e 's/#.*//' -e '/^ *$/d' "$@"
}

# missing_packages PACKAGE...
missing_packages() {
    local installed
    # dpkg-query fails if it has never heard of one of them, and lists the others all the same.
    # shellcheck disable=SC2016 # the braces are dpkg-query's
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    printf '%s\n' "$@" | grep -vxFf <(sed -n 's/^installed //p' <<<"$installed") || true
}

# show_progress DOWNLOADING LOG
# Reads apt-get's output and tells how far it is; the rest goes to LOG.
show_progress() {
    awk -F: -v downloading="$1" -v log_file="$2" '
        function tell(step, percent) {
            if (step != last || percent >= told + 20) {
                last = step
                told = percent - percent % 20
                print "  " step ", " told " %"
                fflush()
            }
        }
        /^dlstatus:/ { tell(downloading, int($3)); next }
        /^pmstatus:/ { tell("installing", int($3)); next }
        /^pm[a-z]*:/ { next }
        { print >log_file }' >&2
}

# as_root COMMAND...
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# apt DOWNLOADING ARG...
apt() {
    local downloading=$1 log=$root/build/packages.log
    shift
    mkdir -p "$root/build"
    : >"$log"
    # sudo would close a third descriptor that is open already.
    # shellcheck disable=SC2016 # it is the inner shell's $@
    as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 sh -c 'exec apt-get "$@" 3>&1' apt-get -y -q \
        -o APT::Status-Fd=3 -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300 "$@" 2>&1 </dev/null \
        | show_progress "$downloading" "$log" && return
    grep -E '^(E|W|Err|dpkg|sudo)[: ]' "$log" >&2
    return 1
}

# has COMMAND...
has() {
    local name
    for name; do
        command -v "$name" >/dev/null || return
    done
}

# install_missing FILE...
install_missing() {
    local packages missing by_hand
    mapfile -t packages < <(list_packages "$@")
    if ! has dpkg-query apt-get; then
        tell "What is missing can be installed only with apt-get, which this system lacks. Needed are, by" \
            "the names that Debian gives them: ${packages[*]}"
        has cmake ninja c++ || fail "Some of cmake, ninja and c++ cannot be found."
        return 0
    fi

    mapfile -t missing < <(missing_packages "${packages[@]}")
    [ ${#missing[@]} -gt 0 ] || return 0
    by_hand="apt-get install --no-install-recommends ${missing[*]}"
    if [ "$(id -u)" != 0 ] && ! has sudo; then
        fail "Some packages are missing, and only root may install them. As root, type: $by_hand"
    fi

    tell "Installing what is missing (a few minutes the first time): ${missing[*]}"
    apt 'reading the package lists' -o APT::Update::Error-Mode=any update \
        || tell "The package lists could not be brought up to date; trying with those that are there."
    apt downloading install --no-install-recommends "${missing[@]}" \
        || fail "The packages could not be installed; build/packages.log has all that was said. If there is" \
            "no network, connect and try again. By hand it is, as root: $by_hand"
}

# unpack_nginx
# Puts the web server that the tests fetch from into build/nginx, unless the system has it. Installing it would
# make it a service of the machine.
unpack_nginx() (
    target=$root/build/nginx log=$root/build/nginx.log
    if [ -x "$target/usr/sbin/nginx" ] || [ -x /usr/sbin/nginx ]; then
        exit 0
    fi
    has apt-get dpkg-deb || fail "The tests need nginx as /usr/sbin/nginx, which is missing; please install it."

    tell "Unpacking nginx, which the tests fetch from, into build/nginx"
    mkdir -p "$root/build"
    folder=$(mktemp -d "$target.XXXXXX") || fail "The folder build cannot be written to."
    trap 'rm -rf "$folder"' EXIT
    download_nginx "$folder" 2>"$log" \
        || { apt 'reading the package lists' update && download_nginx "$folder" 2>"$log"; } \
        || fail "nginx could not be downloaded; build/nginx.log and build/packages.log have all that was said. If" \
            "there is no network, connect and try again."
    dpkg-deb -x "$folder"/nginx_*.deb "$folder/files" || fail "nginx could not be unpacked; see above."
    # Another run may have been faster.
    mv -T "$folder/files" "$target" 2>>"$log" || [ -x "$target/usr/sbin/nginx" ] \
        || fail "nginx could not be moved to build/nginx; build/nginx.log says why."
)

# download_nginx FOLDER
download_nginx() {
    # As root, apt-get would download as another user, who may not write there.
    (cd "$1" && apt-get -q -o APT::Sandbox::User=root download nginx) >&2
}

# build_preset PRESET [OPTION...], the options being those of cmake --build
build_preset() {
    local preset=$1
    shift
    if [ ! -e "$root/build/$preset/build.ninja" ]; then
        tell "Configuring build/$preset"
        (cd "$root" && cmake --preset "$preset") >&2 \
            || fail "CMake could not configure the build; it says why above."
    fi
    (cd "$root" && cmake --build --preset "$preset" "$@") >&2 \
        || fail "The build failed; what the compiler says stands above."
}

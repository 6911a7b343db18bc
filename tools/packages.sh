# Debian packages, by what needs them. Sourced by run.sh, test.sh and .ci/run.
build_packages="g++ cmake ninja-build qt6-base-dev qt6-svg-dev qt6-image-formats-plugins libsqlite3-dev libicu-dev qt6-translations-l10n fonts-inter fonts-dejavu-core"
test_packages="libgtest-dev libgmock-dev genisoimage xorriso udftools grub-rescue-pc xvfb xauth"
walk_packages="libgtest-dev libgmock-dev genisoimage xvfb xauth openbox"
check_packages="clang-format-14 clang-tidy-14 git"

# need <package>...: installs what is missing. Asks before it uses sudo; where it cannot ask, it says the line to run.
need() {
    local missing=""
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0

    local install="apt-get install -y --no-install-recommends$missing"
    if [ "$(id -u)" = 0 ]; then
        echo "Installing:$missing"
        # Package lists are often missing or old on a fresh machine.
        DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
            DEBIAN_FRONTEND=noninteractive $install -qq >/dev/null && return 0
        echo "The packages could not be installed. Check the network and the package sources, then run this again." >&2
        exit 1
    fi
    if command -v sudo >/dev/null && [ -t 0 ]; then
        echo "These packages are missing:$missing"
        printf 'Install them with sudo? [Y/n] '
        local answer
        read -r answer
        case "$answer" in
        "" | [YyДд]*) sudo apt-get update -qq && sudo $install && return 0 ;;
        esac
    fi
    echo "Please run this line as root, then start again:" >&2
    echo "    apt-get update && $install" >&2
    exit 1
}

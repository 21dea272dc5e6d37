#!/bin/bash
# usage: tools/wine32.sh    makes build/wine32, a Wine that runs 32-bit programs, unless it is there
#
# Debian's 32-bit Wine wants a foreign architecture, which changes what every later installation on the machine does.
# This takes the same packages from the same source, but only unpacks them. What it has downloaded is kept in
# build/wine32/packages. Of the machine it needs /lib/ld-linux.so.2 (Debian's libc6-i386) and a kernel that runs 32-bit
# programs; without these it says so and fails. tools/wine-env.sh tells how the result is used.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/once.sh"
home=$root/build/wine32
tree=$home/tree
packages='wine32 libwine libz-mingw-w64 libgcc-s1 zlib1g libfreetype6 libpng16-16 libbrotli1 libfontconfig1 libexpat1
    libx11-6 libx11-data libxcb1 libxau6 libxdmcp6 libbsd0 libmd0 libxext6 libxrender1 libxcursor1 libxfixes3 libxi6
    libxrandr2 libxinerama1 libxcomposite1 libxxf86vm1 libudev1 libusb-1.0-0 fonts-wine'

fail() {
    echo "no 32-bit Wine: $*" >&2
    exit 1
}

# apt with a state of its own, so that the machine's stays as it is.
private_apt() {
    APT_CONFIG=$home/apt/apt.conf apt-get -qq "$@" </dev/null
}

# The release as it came out, from where the machine has it; updates are of no use here, and one source less can fail.
set_up_apt() {
    mkdir -p "$home/apt/lists/partial" "$home/apt/cache/archives/partial"
    local source
    source=$(apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' 'Identifier: Packages' |
        awk '$2 !~ /-/ && $3 == "main" {print; exit}')
    [ -n "$source" ] || fail "apt knows no source of the release"
    echo "deb [arch=i386 signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $source" >"$home/apt/sources.list"
    : >"$home/apt/status"
    cat >"$home/apt/apt.conf" <<END
APT::Architecture "i386";
APT::Architectures { "i386"; };
APT::Sandbox::User "root";
Dir::State "$home/apt";
Dir::State::status "$home/apt/status";
Dir::Cache "$home/apt/cache";
Dir::Etc::sourcelist "$home/apt/sources.list";
Dir::Etc::sourceparts "/dev/null";
Dir::Etc::preferencesparts "/dev/null";
Acquire::Languages "none";
Acquire::Retries "3";
END
}

download() {
    local package missing=
    for package in $packages; do
        compgen -G "$home/packages/${package}_*.deb" >/dev/null || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    set_up_apt
    rm -rf "$home/packages.partial"
    mkdir -p "$home/packages" "$home/packages.partial"
    private_apt update && (cd "$home/packages.partial" && private_apt download $missing) ||
        fail "these packages cannot be downloaded:$missing"
    mv "$home/packages.partial"/*.deb "$home/packages/"
    rmdir "$home/packages.partial"
}

# What the package's own installation does after unpacking: Wine loads the library as its own only with this mark.
mark_as_builtin() {
    head -c 64 "$1"
    printf 'Wine builtin DLL\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0'
    tail -c +97 "$1"
}

unpack() {
    local package
    rm -rf "$tree"
    mkdir -p "$tree"
    for package in "$home"/packages/*.deb; do
        dpkg-deb --fsys-tarfile "$package" |
            tar -x -C "$tree" --exclude='./usr/share/doc*' --exclude='./usr/share/man*' --exclude='./usr/share/locale*'
    done
    mark_as_builtin "$tree/usr/i686-w64-mingw32/lib/zlib1.dll" >"$tree/usr/lib/i386-linux-gnu/wine/i386-windows/zlib1.dll"
}

# Programs of the names that the scripts call, for the libraries' path is to be seen by Wine alone.
write_starter() {
    cat >"$home/bin/$1" <<END
#!/bin/sh
tree=\$(cd "\$(dirname "\$0")/../tree" && pwd)
export LD_LIBRARY_PATH="\$tree/lib/i386-linux-gnu:\$tree/usr/lib/i386-linux-gnu"
export WINELOADER="\$tree/usr/lib/wine/wine" WINESERVER="\$tree/usr/lib/wine/wineserver32"
export XLOCALEDIR="\$tree/usr/share/X11/locale"
exec "\$tree/usr/lib/wine/$2" "\$@"
END
    chmod +x "$home/bin/$1"
}

check() {
    [ -e /lib/ld-linux.so.2 ] || fail "/lib/ld-linux.so.2 is missing (Debian's libc6-i386)"
    local version
    version=$("$home/bin/wine" --version 2>&1) && [[ $version == wine-* ]] ||
        fail "this machine does not run 32-bit programs: $version"
}

make_wine() {
    echo "making a 32-bit Wine in $home (once, about half a minute)" >&2
    mkdir -p "$home/bin"
    download
    unpack
    write_starter wine wine
    write_starter wineserver wineserver32
    check
}

made_once "$home" "$0" make_wine
check

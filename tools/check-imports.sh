#!/bin/sh
# usage: tools/check-imports.sh [--95] PROGRAM.exe...
#
# Prints every import that is not on the lists of what the oldest Windows has, and every header field that the loaders of old Windows refuse;
# fails when there is one. With --95 also what Windows 95 lacks.
lists=$(dirname "$(readlink -f "$0")")/oldest-windows
lacks95=0
[ "$1" = --95 ] && { lacks95=1; shift; }
result=0
for exe in "$@"; do
    dump=$(i686-w64-mingw32-objdump -p "$exe") || exit 2
    echo "$dump" | awk -v exe="$exe" -v lists="$lists" -v lacks95="$lacks95" '
        function off(what) { print exe ": " what; bad = 1 }
        /^Magic/ && $2 != "010b" { off("not a 32-bit program") }
        /^MajorOSystemVersion/ && $2 > 4 { off("asks for Windows version " $2) }
        /^MajorSubsystemVersion/ && $2 > 4 { off("asks for subsystem version " $2) }
        /^SectionAlignment/ && $2 != "00001000" { off("section alignment " $2) }
        /DLL Name:/ {
            dll = tolower($3)
            list = lists "/" dll
            sub(/\.dll$/, ".txt", list)
            known = 0
            delete allowed
            while ((getline line < list) > 0) {
                known = 1
                split(line, field, " ")
                if (line !~ /^#/ && !(lacks95 && field[2] != "")) allowed[field[1]] = 1
            }
            close(list)
            if (!known) off(dll " has no list")
            imports = 1
            next
        }
        imports && /^\t[0-9a-fA-F]+\t/ {
            total++
            name = NF == 2 || /none/ ? "ordinal " $2 : $3
            if (known && !(name in allowed)) off(dll ": " name)
        }
        END {
            if (!total) off("no imports found")
            printf "%s: %d imports, %s\n", exe, total, bad ? "NOT all in the oldest Windows" : "all in the oldest Windows"
            exit bad
        }' || result=1
done
exit $result

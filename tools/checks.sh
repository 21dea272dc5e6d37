# Sourced by scripts of checks: counts them, and shows what a failed one has printed.
passed=0 failed=0
output=$(mktemp)
trap 'rm -f "$output"' EXIT

check() {
    local what=$1
    shift
    if "$@" >"$output" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "not so: $what"
        cat "$output"
    fi
}

# Last of all: "N passed, N failed", and whether none has.
closing_line() {
    echo "$passed passed, $failed failed"
    [ $failed = 0 ]
}

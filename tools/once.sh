# Sourced by scripts that make something which stays: makes it once, whoever else wants it at the same time.

# made_once FOLDER SCRIPT COMMAND...: runs COMMAND, which makes FOLDER, unless it has done so before and SCRIPT has not
# been changed since; "" for SCRIPT: whatever has been changed. What COMMAND starts and leaves running must close
# descriptor 9, the lock. Needs `set -e`: a COMMAND that fails half-way has made nothing, and ends the calling script.
made_once() {
    local folder=$1 script=$2
    shift 2
    if [ -n "$script" ] && [ "$script" -nt "$folder/.complete" ]; then rm -f "$folder/.complete"; fi
    [ ! -e "$folder/.complete" ] || return 0
    mkdir -p "$(dirname "$folder")"
    (
        flock 9
        [ ! -e "$folder/.complete" ] || exit 0
        "$@"
        touch "$folder/.complete"
    ) 9>"$folder.lock"
}

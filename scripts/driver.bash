# Carries out what the demo's driver asks for; sourced by the scripts that run it.
# shellcheck shell=bash

# Where its pictures go; the script that sources this sets it.
pictures=

# Takes the picture again until it stays the same for a moment: everything has been drawn then. With a part of
# the display, as WIDTHxHEIGHT+LEFT+TOP, that part alone.
take_picture() {
    local name=${1//[^A-Za-z0-9_-]/_} part=${2:-} attempt
    local picture=$pictures/$name.png before=$pictures/before.rgb now=$pictures/now.rgb
    import -window root "rgb:$before"
    for ((attempt = 0; attempt < 20; ++attempt)); do
        sleep 0.25
        import -window root "rgb:$now"
        if cmp -s "$before" "$now"; then
            break
        fi
        mv "$now" "$before"
    done
    rm -f "$before" "$now"
    import -window root ${part:+-crop "$part" +repage} "$picture"
    say "Picture $picture"
}

# Runs the driver with its arguments and carries out what its lines ask for:
#     STEP <text>            progress
#     PICTURE <name> [part]  take a picture of the display, then answer "done"
#     ROW a|b|c|d            a row of the table: appended to rows
#     FAIL <text>            something went wrong: counted in failures
# Other lines are shown as they are. The result is its exit code.
run_driver() {
    local line name part result=0 driver_process from to
    failures=0
    rows=()

    [[ -f $1 ]] || die "the driver of the demo is not built: $1"
    rm -rf "$pictures"
    mkdir -p "$pictures"
    coproc DRIVER { exec scripts/wine-run "$@"; }
    # shellcheck disable=SC2153 # set by coproc
    driver_process=$DRIVER_PID
    exec {from}<&"${DRIVER[0]}" {to}>&"${DRIVER[1]}"
    while IFS= read -r -u "$from" line || [[ -n $line ]]; do
        line=${line%$'\r'}
        case $line in
        'STEP '*) say "${line#STEP }" ;;
        'PICTURE '*)
            read -r name part <<<"${line#PICTURE }"
            take_picture "$name" "$part"
            echo 'done' >&"$to"
            ;;
        'ROW '*) rows+=("${line#ROW }") ;;
        'FAIL '*)
            failures=$((failures + 1))
            say "FAILED: ${line#FAIL }" >&2
            ;;
        *) printf '   %s\n' "$line" ;;
        esac
    done
    wait "$driver_process" || result=$?
    exec {from}<&- {to}>&-
    return "$result"
}

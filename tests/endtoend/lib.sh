# What the end-to-end tests share. Sourced; leaves the script in a clean folder of its own.
set -euo pipefail
. "$VOREL_ROOT/scripts/desktop.sh"
rm -rf ./endtoend-run
mkdir endtoend-run
cd endtoend-run

# Whether the program under test is the Windows one, which an emulator runs.
on_windows() {
  [ -n "${VOREL_EMULATED:-}" ]
}

on_windows || export XDG_DATA_HOME=$PWD/data # not the real user's

# lines FILE: a text of the program's, whose lines end in the way of its system.
lines() {
  tr -d '\r' <"$1"
}

fail() {
  echo "FAILED: $*" >&2
  [ ! -s vorel.err ] || sed 's/^/  vorel said: /' vorel.err >&2
  exit 1
}

# pixels_brighter BEFORE AFTER: how many pixels' red has grown by a fifth or more of the range.
pixels_brighter() {
  convert "$2" "$1" -channel R -separate +channel -compose minus_src -composite \
    -threshold 20% -format '%[fx:round(mean*w*h)]' info:
}

# pixels_changed BEFORE AFTER: how many pixels differ by more than a twentieth.
pixels_changed() {
  convert "$1" "$2" -compose difference -composite -colorspace gray -threshold 5% \
    -format '%[fx:round(mean*w*h)]' info:
}

# look: keeps the picture, for the next comparison.
look() {
  shot last.png
}

# expect_change LEAST WHAT: more than so many pixels differ from the last look; looks anew.
expect_change() {
  sleep 1
  shot now.png
  changed=$(pixels_changed last.png now.png)
  [ "$changed" -gt "$1" ] || fail "$2 changed $changed pixels"
  mv now.png last.png
}

# hold_changes LEAST WHAT SECONDS KEY...: the keys, held for so long, change more than so many pixels.
hold_changes() {
  local least=$1 what=$2
  shift 2
  hold "$@"
  expect_change "$least" "$what"
}

# Ends the program by Q and expects that it had nothing to say.
quit_cleanly() {
  leave q
  [ "$vorel_status" -eq 0 ] || fail "status $vorel_status after Q"
  [ ! -s vorel.out ] || fail "words on the standard output: $(cat vorel.out)"
  [ ! -s vorel.err ] || fail "words on the standard error"
  [ ! -e shader_error.log ] || fail "a shader failed: $(cat shader_error.log)"
}

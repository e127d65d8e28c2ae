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

# pixels_changed BEFORE AFTER: how many pixels differ by more than a twentieth.
pixels_changed() {
  convert "$1" "$2" -compose difference -composite -colorspace gray -threshold 5% \
    -format '%[fx:round(mean*w*h)]' info:
}

# rest: waits until the picture stays the same, and keeps it for the next comparison.
rest() {
  desktop_wait "a picture" shot last.ppm # there is none while a window returns
  desktop_wait "the picture to rest" picture_rests
}

# The colours of a trail go on changing slowly.
picture_rests() {
  local round
  for round in 1 2 3; do
    sleep 0.2
    shot now.ppm
    cmp -s last.ppm now.ppm || [ "$(pixels_changed last.ppm now.ppm)" -eq 0 ] || {
      mv now.ppm last.ppm
      return 1
    }
  done
}

picture_differs() {
  shot now.ppm || return 1
  changed=$(pixels_changed last.ppm now.ppm)
  [ "$changed" -gt "$1" ]
}

# expect_change LEAST WHAT: waits until more than so many pixels differ from the last look.
expect_change() {
  desktop_wait "$2 to change more than $1 pixels" picture_differs "$1"
}

# expect_same FILE WHAT: the last look is that picture, but for a few pixels.
expect_same() {
  changed=$(pixels_changed "$1" last.ppm)
  [ "$changed" -lt "${3:-1}" ] || fail "$changed pixels differ: $2"
}

# press LEAST WHAT KEY...: holds the keys of a switch down until they have changed more than so many
# pixels, then waits until the picture rests.
press() {
  local least=$1 what=$2 key
  shift 2
  for key in "$@"; do xdotool keydown "$key"; done
  expect_change "$least" "$what"
  for key in "$@"; do xdotool keyup "$key"; done
  rest
}

# push LEAST WHAT SECONDS KEY...: the same by keys that act as long as they are held: holds them for
# so long, and again if a busy machine saw nothing of it.
push() {
  local least=$1 what=$2
  shift 2
  desktop_wait "$what to change more than $least pixels" pushed "$least" "$@"
  rest
}

pushed() {
  hold "${@:2}"
  sleep 0.2
  picture_differs "$1"
}

# A ladder instead of the random maze of the start: the same tree each time, and the same start at
# the plain node at its left end, with a single corridor to the right.
ladder() {
  rest
  press 300 "a ladder" Control_L Shift_L n
}

# Ends the program by Q and expects that it had nothing to say.
quit_cleanly() {
  leave q
  [ "$vorel_status" -eq 0 ] || fail "status $vorel_status after Q"
  [ ! -s vorel.out ] || fail "words on the standard output: $(cat vorel.out)"
  [ ! -s vorel.err ] || fail "words on the standard error"
  [ ! -e shader_error.log ] || fail "a shader failed: $(cat shader_error.log)"
}

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

# wait_still: waits until the picture stops changing, and keeps it in last.ppm.
wait_still() {
  desktop_wait "a picture" shot last.ppm # there is none while a window returns
  desktop_wait "a still picture" picture_is_still
}

# The colours of a trail go on changing slowly.
picture_is_still() {
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

# expect_change MINIMUM WHAT: waits until more than so many pixels differ from last.ppm.
expect_change() {
  desktop_wait "$2 to change more than $1 pixels" picture_differs "$1"
}

# expect_same FILE WHAT [LIMIT]: fewer pixels than the limit differ between that picture and last.ppm.
expect_same() {
  changed=$(pixels_changed "$1" last.ppm)
  [ "$changed" -lt "${3:-1}" ] || fail "$changed pixels differ: $2"
}

# press MINIMUM WHAT KEY...: holds the keys of a switch down until they have changed more than so many
# pixels, then waits for a still picture.
press() {
  local minimum=$1 what=$2 key
  shift 2
  for key in "$@"; do xdotool keydown "$key"; done
  expect_change "$minimum" "$what"
  for key in "$@"; do xdotool keyup "$key"; done
  wait_still
}

# push MINIMUM WHAT SECONDS KEY...: the same for keys that act as long as they are held. Holds them for
# so long, and again only if the picture stays the same: a busy machine can miss a short press.
push() {
  local minimum=$1 what=$2
  shift 2
  desktop_wait "$what to change more than $minimum pixels" pushed "$minimum" "$@"
  wait_still
}

pushed() {
  hold "${@:2}"
  for _ in {1..20}; do
    ! picture_differs "$1" || return 0
    sleep 0.1
  done
  return 1
}

# A ladder instead of the random maze of the start: the same tree each time, and the same start at
# the plain node at its left end, with a single corridor to the right.
ladder() {
  wait_still
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

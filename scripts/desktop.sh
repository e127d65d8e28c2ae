# shellcheck shell=bash
# A virtual desktop with a window manager, and the real program driven in it by real events.
# Sourced by scripts/tour and by the end-to-end tests. The caller sets VOREL to the program.

# Starts a desktop of the size WxH and the window manager, and sets DISPLAY. All of it goes when the
# calling script ends. Either can fail to start on a busy machine, and is then started again.
desktop_start() {
  # The emulator that runs the Windows program keeps to the display that it was started on.
  [ -z "${VOREL_EMULATED:-}" ] || wineserver -k || true
  desktop_size=${1:-1280x960}
  desktop_number=$(mktemp)
  trap desktop_stop EXIT
  desktop_wait "a virtual display" desktop_display_ready
  DISPLAY=:$(cat "$desktop_number")
  export DISPLAY
  unset WAYLAND_DISPLAY SDL_VIDEODRIVER
  rm -f "$desktop_number"
  desktop_wait "a window manager" desktop_manager_ready
}

desktop_display_ready() {
  if ! kill -0 "${desktop_display:-}" 2>/dev/null; then
    Xvfb -displayfd 3 -screen 0 "${desktop_size}x24" -nolisten tcp 3>"$desktop_number" 2>/dev/null &
    desktop_display=$!
  fi
  test -s "$desktop_number"
}

desktop_manager_ready() {
  if ! kill -0 "${desktop_manager:-}" 2>/dev/null; then
    openbox --config-file "$(dirname "${BASH_SOURCE[0]}")/openbox.xml" >/dev/null 2>&1 &
    desktop_manager=$!
  fi
  wmctrl -m >/dev/null 2>&1
}

desktop_stop() {
  # shellcheck disable=SC2086
  kill ${vorel_job:-} ${desktop_manager:-} ${desktop_display:-} 2>/dev/null || true
  wait 2>/dev/null || true
}

desktop_wait_limit=100 # seconds, well below the time limit of a test

# desktop_wait WHAT COMMAND...: waits until the command succeeds, at most for the limit.
desktop_wait() {
  local what=$1 end=$((SECONDS + desktop_wait_limit))
  shift
  until "$@"; do
    if [ $SECONDS -ge $end ]; then
      echo "gave up waiting for $what" >&2
      exit 1
    fi
    sleep 0.1
  done
}

# Starts the program in the current folder and waits until its window has the keyboard.
vorel_start() {
  # The shell makes jobs in the background ignore these signals.
  env --default-signal=INT,QUIT "$VOREL" >vorel.out 2>vorel.err &
  vorel_job=$!
  desktop_wait "the window of vorel" vorel_window_found
  desktop_wait "the keyboard" vorel_has_keyboard
  desktop_wait "the first frame" vorel_drawn
}

# The prompt is in each first frame.
vorel_drawn() {
  [ "$(import -window "$vorel_window" -crop 200x14+0+0 -format '%[fx:maxima>0.5]' info:)" = 1 ]
}

vorel_window_found() {
  vorel_window=$(xdotool search --onlyvisible --name '^Vorel' 2>/dev/null | head -n 1)
  [ -n "$vorel_window" ]
}

vorel_has_keyboard() {
  xdotool windowactivate "$vorel_window" 2>/dev/null || true
  [ "$(xdotool getwindowfocus 2>/dev/null)" = "$vorel_window" ]
}

vorel_minimised() {
  [ -z "$(xdotool search --onlyvisible --name '^Vorel' 2>/dev/null)" ]
}

# Brings a minimised window back.
vorel_return() {
  wmctrl -i -a "$vorel_window"
  desktop_wait "the window's return" vorel_has_keyboard
}

# hold SECONDS KEY...: keys held down together; input is polled, so a short tap could be missed.
hold() {
  local seconds=$1 key
  shift
  for key in "$@"; do xdotool keydown "$key"; done
  sleep "$seconds"
  for key in "$@"; do xdotool keyup "$key"; done
}

# leave KEY: holds the key down until the program has ended. A large maze takes long frames, and a
# short press between two looks at the keys would be lost.
leave() {
  xdotool keydown "$1"
  vorel_wait_end
  xdotool keyup "$1"
}

# shot FILE: the picture of the window.
shot() {
  import -window "$vorel_window" "$1"
}

vorel_running() {
  kill -0 "$vorel_job" 2>/dev/null
}

vorel_gone() {
  ! vorel_running
}

leak_checker_status=99 # see tests/CMakeLists.txt

# Waits for the program to end by itself and sets vorel_status.
# shellcheck disable=SC2034 # for the caller
vorel_wait_end() {
  desktop_wait "the end of vorel" vorel_gone
  vorel_status=0
  wait "$vorel_job" || vorel_status=$?
  # The leak checker of the sanitizer build sometimes crashes, with a status of its own, when a thread
  # of the driver ends meanwhile.
  if [ $vorel_status -eq $leak_checker_status ] && grep -q '^Tracer caught signal' vorel.err &&
    ! grep -qE 'runtime error|AddressSanitizer|detected memory leaks' vorel.err; then
    vorel_status=0
    : >vorel.err
  fi
  vorel_job=
}

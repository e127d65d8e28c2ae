# What the program cannot do without is reported: a report on the standard output, one sentence on the
# standard error, status 1.
. "$(dirname "$0")/lib.sh"

# expect_fault WHAT REPORT SENTENCE COMMAND...
expect_fault() {
  local what=$1 report=$2 sentence=$3 status=0
  shift 3
  on_windows && wineserver -k || true # which would keep the display of the last time
  timeout 30 "$@" >vorel.out 2>vorel.err || status=$?
  [ $status -eq 1 ] || fail "$what: status $status"
  lines vorel.out | grep -qxF "[FATAL ERROR] $report" || fail "$what: the report was $(cat vorel.out)"
  grep -q "^vorel: .*$sentence" vorel.err || fail "$what: '$sentence' is not in the error"
  [ "$(grep -c '^vorel: ' vorel.err)" -eq 1 ] || fail "$what: more than one sentence"
}

expect_fault "no display" "Window Creation Error." "display" \
  env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER "$VOREL"

desktop_start
expect_fault "no such display" "Window Creation Error." "display" env DISPLAY=:987 "$VOREL"
if ! on_windows; then
  for lack in SDL_OPENGL_LIBRARY=/nonexistent/libGL.so LIBGL_DRIVERS_PATH=/nonexistent LIBGL_ALWAYS_INDIRECT=1; do
    expect_fault "$lack" "Can't Create A GL Rendering Context." "OpenGL" env "$lack" "$VOREL"
  done
fi
expect_fault "an old OpenGL" \
  "OpenGL version 2.0 or higher required for shaders; you have version 1.4" "2.0 is needed" \
  env MESA_GL_VERSION_OVERRIDE=1.4 "$VOREL"
printf x >font_fmod.dat
expect_fault "a font file without a glyph" "loadfont: 'font_fmod.dat' not found" "holds no font" \
  "$VOREL"

# Q, Escape, the window's close and a polite signal, or the end of the user's session, all end the
# program in the same way.
. "$(dirname "$0")/lib.sh"
desktop_start

close_by() {
  case $1 in
    q | Escape) leave "$1" ;;
    window) wmctrl -i -c "$vorel_window" && vorel_wait_end ;;
    session) timeout 20 wineboot -e && vorel_wait_end ;;
    signal) kill -TERM "$vorel_job" && vorel_wait_end ;;
  esac
}

ways="q Escape window signal"
on_windows && ways="q Escape window session" # there are no polite signals
for way in $ways; do
  rm -f maze_save.dat
  vorel_start
  close_by $way
  [ -s maze_save.dat ] || fail "no session after $way"
  [ "$vorel_status" -eq 0 ] || fail "status $vorel_status after $way"
  [ ! -s vorel.out ] || fail "words on the standard output after $way: $(cat vorel.out)"
  [ ! -s vorel.err ] || fail "words on the standard error after $way"
done

# Who may include whom: a folder includes only from itself and from lower floors, the ground floors
# know no GL, and only the files that are named after a system know one.
set -euo pipefail
cd "$1/src"

declare -A below=(
  [support]=""
  [maze]="support"
  [generate]="support maze"
  [world]="support maze generate"
  [gfx]="support maze generate world"
  [text]="support maze generate world gfx"
  [render]="support maze generate world gfx text"
  [app]="support maze generate world gfx text render"
)

faults=0
fault() {
  echo "$*" >&2
  faults=$((faults + 1))
}

for room in *; do
  [ -d "$room" ] || continue
  [ -n "${below[$room]+known}" ] || fault "$room: a folder that the floors don't know"
  while IFS=: read -r file line included; do
    case " $room ${below[$room]-} " in
      *" $included "*) ;;
      *) fault "src/$file:$line includes from $included/" ;;
    esac
  done < <(grep -rnE '^ *# *include *"' "$room" | sed -E 's/ *# *include *"([^"\/]*).*/\1/')
done

while read -r line; do fault "src/$line knows GL"; done < <(
  grep -rnE '#include <(GL|EGL|SDL)|\bgl[A-Z][a-z]+[A-Z0-9]?[a-z]*\(' support maze generate world || true)
while read -r line; do fault "src/$line knows a window system"; done < <(
  grep -rnE '_WIN32|windows\.h|SDL' . |
    grep -vE '^\./(gfx/platform_[a-z0-9_]+|support/[a-z]+_windows)\.cpp:' || true)
while read -r line; do fault "src/$line knows a system's files"; done < <(
  grep -rnE 'unistd\.h|sys/stat\.h|<io\.h>' . |
    grep -vE '^\./support/[a-z]+_(posix|windows)\.cpp:' || true)

[ "$faults" -eq 0 ] || exit 1

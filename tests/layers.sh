# layers.sh ROOT: checks the layers. A folder of src/ includes only from itself and from those before
# it; the first four know no GL; only files that are named after a system know a window system. Prints
# the lines of the tests in relation to the source, without blank lines and comments.
set -euo pipefail
cd "$1/src"
layers=(support maze generate world gfx text render/gl render app maker)
faults=0

# forbid WHAT ALLOWED PATTERN PATH...: no line matches the pattern but those that are allowed.
forbid() {
  local what=$1 allowed=$2 found
  found=$(grep -rnE "${@:3}" | grep -vE "$allowed" || true)
  [ -z "$found" ] || echo "$what: $found" >&2
  [ -z "$found" ] || faults=$((faults + 1))
}

[ "$(find . -mindepth 1 -type d | wc -l)" -eq ${#layers[@]} ] || faults=1
for i in "${!layers[@]}"; do
  below=$(IFS='|' && echo "${layers[*]:0:i+1}")
  forbid "a layer above" "include \"($below)/" '^ *# *include *"' "${layers[i]}"
done
forbid "the other program" '^$' 'include "app/' maker
forbid "GL" '^$' '#include <(GL|EGL|SDL)|\bgl[A-Z][a-z]+[A-Z0-9]?[a-z]*\(' "${layers[@]:0:4}"
forbid "a window system" '^(\./)?(gfx/platform_[a-z0-9_]+|support/[a-z]+_windows)\.cpp:' \
  '_WIN32|windows\.h|SDL' .
forbid "the files of a system" '^(\./)?support/[a-z]+_(posix|windows)\.cpp:' \
  'unistd\.h|sys/stat\.h|<io\.h>' .

# No circle of includes. A header and its sources are one unit.
grep -roE '^#include "[^"]+\.h"' "${layers[@]}" |
  sed -E 's/_(sdl|win32)[a-z_]*//; s/\.(cpp|h):#include "/ /; s/\.h"//' | tsort >/dev/null || faults=1

lines() {
  find "$1" -type f -regex '.*\.\(cpp\|h\|sh\)' -exec cat {} + | grep -vcE '^\s*(//.*|#|# .*|#!.*)?$'
}

source=$(lines .)
tests=$(lines ../tests)
permille=$((tests * 1000 / source))
echo "tests have $tests lines to $source of source: $((permille / 10)).$((permille % 10)) %"
exit $faults

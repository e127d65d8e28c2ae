# Runs a command in a virtual desktop of its own.
set -euo pipefail
. "$(dirname "$0")/../scripts/desktop.sh"
desktop_start
"$@"

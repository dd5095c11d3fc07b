#!/bin/sh
# The whole program under load, each scenario in a process of its own. $1 is the build directory, $2
# for how many seconds the steady load lasts; below 10 what takes long is left out.
set -eu
load=$1/cotirama-load
seconds=$2
# The offscreen platform warns of each raised window.
export QT_LOGGING_RULES='default.warning=false'

# A start includes that of the connection to a display.
if [ -n "${DISPLAY:-}" ]; then
  QT_QPA_PLATFORM=xcb "$load" start $((seconds / 2 + 1))
elif command -v xvfb-run >/dev/null; then
  QT_QPA_PLATFORM=xcb xvfb-run -a "$load" start $((seconds / 2 + 1))
else
  QT_QPA_PLATFORM=offscreen "$load" start $((seconds / 2 + 1))
fi

export QT_QPA_PLATFORM=offscreen
"$load" burst
"$load" steady "$seconds"
[ "$seconds" -ge 10 ] || exit 0
"$load" steady "$seconds" 0
"$load" memory 5
"$load" idle 10

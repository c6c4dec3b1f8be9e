# To be sourced: a screen in memory for programs that need one.

# open_screen [SIZE]: starts a screen and sets DISPLAY; close_screen ends it.
open_screen() {
  local number
  # The server picks a free number and tells it once it takes clients.
  exec {screen_fd}< <(exec Xvfb -displayfd 1 -screen 0 "${1:-1920x1080}x24" -noreset -nolisten tcp \
    2>/dev/null)
  screen_pid=$!
  if ! read -r number <&"$screen_fd"; then
    echo "No screen: Xvfb doesn't start." >&2
    return 1
  fi
  export DISPLAY=:$number
}

close_screen() {
  kill "$screen_pid" 2>/dev/null || true
  exec {screen_fd}<&-
}

# start_manager: starts a window manager on the screen; stop_manager ends it. Without one windows
# have no title bars, and Wine waits in vain for them to be placed.
start_manager() {
  openbox --sm-disable &>/dev/null &
  manager_pid=$!
}

stop_manager() {
  kill "$manager_pid" 2>/dev/null || true
}

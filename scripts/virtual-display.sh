# Sourced by the scripts that run the program on a display of their own (make run headless, the UI
# tests). start_virtual_display <folder> starts an Xvfb the size of a 14-inch laptop screen, waits for it,
# exports DISPLAY and leaves its process id in xvfb_pid.
start_virtual_display() {
  local folder=$1
  Xvfb -displayfd 3 -screen 0 1512x982x24 -nolisten tcp 3>"$folder/display" >/dev/null 2>&1 &
  xvfb_pid=$!
  for _ in $(seq 100); do [[ -s "$folder/display" ]] && break; sleep 0.05; done
  export DISPLAY=:$(cat "$folder/display")
}

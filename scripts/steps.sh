# For the scripts in the root: work in steps that say one line each and log to build/log/.
# Sourced from the root of the tree, by bash.

mkdir -p build/log

# Step NAME COMMAND...: runs the command with its output in build/log/NAME.log and says how long it
# took; when it fails, shows how the log ends and leaves.
Step() {
  local name=$1 log=build/log/$1.log start=${EPOCHREALTIME/[.,]/} status=0
  shift
  printf '%-16s' "$name"
  "$@" >"$log" 2>&1 </dev/null || status=$?
  printf '%7s s\n' "$(Since "$start")"
  ((status == 0)) && return
  echo
  WithoutSuccesses <"$log" | tail -n 60
  echo
  echo "$name failed (status $status); all it said is in $log"
  exit 1
}

# A log without its lines of what went well, among which a failure is hard to see.
WithoutSuccesses() {
  grep -vE '^ +Start +[0-9]+:| Passed +[0-9.]+ sec$|^\[[0-9]+/[0-9]+\] (Building|Linking) ' || true
}

# Since START: the seconds since START, a time in microseconds.
Since() {
  local spent=$((${EPOCHREALTIME/[.,]/} - $1))
  echo "$((spent / 1000000)).$((spent / 100000 % 10))"
}

# Build PRESET TARGET...: configures and builds, everything when no target is named.
Build() {
  local preset=$1
  shift
  cmake --preset "$preset" &&
    cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}

# The lines that define handlers, "NAME", "FILE:LINE" each, from the plug-in's sources.
match($0, /^ *(PARAMETER|ALIAS)\([A-Za-z0-9_]+/) {
  name = substr($0, RSTART, RLENGTH)
  sub(/.*\(/, "", name)
  printf "{\"%s\", \"%s:%d\"},\n", name, FILENAME, FNR
}

# Prints "function <lines> <path> <name>" for each function body in C++ sources. A body opens with a
# brace at namespace or class level whose head holds a parameter list. Strings, characters, comments
# and preprocessor lines are stepped over.

FNR == 1 { depth = 0; head = ""; comment = 0; raw = ""; directive = 0; body = 0 }

function opens_function(text) {
  if (text ~ /(^|[ \t])(namespace|enum)([ \t]|$)/ && text !~ /\(/) return 0
  if (text ~ /(^|[ \t>])(class|struct|union)[ \t]+[A-Za-z_:0-9]+[^()]*$/) return 0
  if (text ~ /=[ \t]*$/) return 0
  return text ~ /\(/
}

function name_of(text) {
  sub(/^.*(TEST|TEST_F|TEST_P|BENCHMARK_F|BENCHMARK_DEFINE_F)\(/, "", text)
  if (text !~ /\(/) { gsub(/[ \t)]/, "", text); sub(/,/, ".", text); return text }
  sub(/\(.*/, "", text); sub(/[ \t]+$/, "", text); sub(/^.*[ \t*&]/, "", text)
  return text
}

function step(line,    i, n, c, two, end, tail) {
  n = length(line)
  for (i = 1; i <= n; i++) {
    if (raw != "") {
      end = index(substr(line, i), raw)
      if (!end) return
      i += end + length(raw) - 2; raw = ""; continue
    }
    if (comment) {
      end = index(substr(line, i), "*/")
      if (!end) return
      i += end; comment = 0; continue
    }
    c = substr(line, i, 1); two = substr(line, i, 2)
    if (two == "//") return
    if (two == "/*") { comment = 1; i++; continue }
    if (two == "R\"") {
      tail = substr(line, i + 2)
      raw = ")" substr(tail, 1, index(tail, "(") - 1) "\""
      i += index(tail, "(") + 1; continue
    }
    if (c == "\"" || (c == "'" && substr(line, i - 1, 1) !~ /[0-9A-Za-z]/)) {
      for (i++; i <= n && substr(line, i, 1) != c; i++) if (substr(line, i, 1) == "\\") i++
      continue
    }
    if (c == "{") {
      if (!body && opens_function(head)) { body = depth + 1; start = FNR; name = name_of(head) }
      depth++; head = ""; continue
    }
    if (c == "}") {
      if (body == depth) { print "function", FNR - start + 1, FILENAME, name; body = 0 }
      depth--; head = ""; continue
    }
    if (c == ";" && !body) { head = ""; continue }
    if (!body) head = head c
  }
  if (!body) head = head " "
}

directive || /^[ \t]*#/ { directive = /\\$/; next }
{ step($0) }

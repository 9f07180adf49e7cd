# One JSON line for each conversion, from the logs that kova-translate --log-json wrote:
#   awk -f conversions.awk LOG...
# "input" and "error" are taken from the log as they stand there, so they need no escaping. A conversion without an
# end is one that still runs, or whose process was stopped.

function begin() {
    result = "not finished"
    input = error = time = duration = "null"
    isOpen = 1
}

function tell(    name) {
    name = log_name
    gsub(/["\\]/, "\\\\&", name)
    printf "{\"log\":\"%s\",\"input\":%s,\"result\":\"%s\",\"error\":%s,\"time\":%s,\"duration\":%s}\n",
        name, input, result, error, time, duration
    isOpen = 0
}

# What stands between two texts in the line.
function between(before, after,    rest) {
    rest = substr($0, index($0, before) + length(before))
    return substr(rest, 1, index(rest, after) - 1)
}

function text() {
    return between("\"text\":\"", "\",\"task\":")
}

function finish(outcome) {
    result = outcome
    time = "\"" between("\"time\":\"", "\"") "\""
    duration = between("\"duration\":", "}")
    tell()
}

# A run may fail before its first conversion.
FNR == 1 {
    if (isOpen)
        tell()
    log_name = FILENAME
    seen[log_name] = 1
    conversions = 0
    begin()
}

/"event":"KOVAStartConversionTaskEvent"/ {
    if (conversions++)
        begin()
}

/"event":"KOVAStartReadFileTaskEvent"/ && isOpen && input == "null" {
    input = "\"" substr(text(), length("Input File           : ") + 1) "\""
}

/"event":"KOVAErrorEvent"/ && isOpen && error == "null" {
    error = "\"" text() "\""
}

/"event":"KOVAEndConversionTaskEvent"/ {
    finish(error != "null" ? "failed" : text() == "" ? "aborted" : "translated")
}

/"event":"Product End"/ && isOpen {
    finish("failed")
}

END {
    if (isOpen)
        tell()
    for (i = 1; i < ARGC; ++i)
        if (!(ARGV[i] in seen)) {
            log_name = ARGV[i]
            begin()
            tell()
        }
}

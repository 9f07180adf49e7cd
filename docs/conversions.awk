# One JSON line for each conversion, from the logs that kova-translate --log-json wrote, one file each:
#   awk -f conversions.awk LOG...
# "input" and "result" are taken from the log as they stand there, so they need no escaping. A log without an end
# is that of a process that still runs or was stopped.

function told() {
    gsub(/["\\]/, "\\\\&", log_name)
    printf "{\"log\":\"%s\",\"input\":%s,\"result\":\"%s\",\"time\":%s,\"duration\":%s}\n",
        log_name, input, result, time, duration
}

# What stands between two texts in the line.
function between(before, after,    rest) {
    rest = substr($0, index($0, before) + length(before))
    return substr(rest, 1, index(rest, after) - 1)
}

function begin(name) {
    log_name = name
    result = "Not finished"
    input = time = duration = "null"
    seen[name] = 1
}

FNR == 1 {
    if (log_name != "")
        told()
    begin(FILENAME)
}

/"event":"KOVAStartReadFileTaskEvent"/ && input == "null" {
    input = "\"" between("\"text\":\"Input File           : ", "\",\"task\":") "\""
}

/"event":"Product End"/ {
    result = between("\"text\":\"", "\",\"task\":")
    time = "\"" between("\"time\":\"", "\"") "\""
    duration = between("\"duration\":", "}")
}

END {
    if (log_name != "")
        told()
    for (i = 1; i < ARGC; ++i)
        if (!(ARGV[i] in seen)) {
            begin(ARGV[i])
            told()
        }
}

# Prints one small fault for each line of the display's sources that can take one, as
# key <TAB> file <TAB> line number <TAB> the line as it is <TAB> the line with its fault
# where the key is random: sorted by it, the first lines are a fair draw over all rooms. Key and fault come from the seed,
# the file's name and the line's text alone, so that a draw stays as it is when other lines change.

BEGIN {
    for (i = 32; i < 127; ++i) code_of[sprintf("%c", i)] = i
    add(" < ", " <= "); add(" <= ", " < "); add(" > ", " >= "); add(" >= ", " > ")
    add(" == ", " != "); add(" != ", " == "); add(" && ", " || "); add(" || ", " && ")
    add(" + 1", " + 2"); add(" - 1", ""); add("true", "false"); add("false", "true"); add("return 0;", "return -1;")
    add("if (", "if (!("); add("return;", ";")
}

function add(before, after) { ++count; from[count] = before; to[count] = after }

# A number below 2^31 - 1, the next of its row; the row begins at a text.
function next_number() { return state = (state * 16807) % 2147483647 }
function begin_row(text,    i) {
    state = seed
    for (i = 1; i <= length(text); ++i) state = (state * 31 + code_of[substr(text, i, 1)] + 1) % 2147483647
    next_number(); next_number()
}

# The line with its first `before` exchanged, or an empty text.
function exchanged(line, before, after,    at) {
    at = index(line, before)
    return at == 0 ? "" : substr(line, 1, at - 1) after substr(line, at + length(before))
}

# The line with its condition, which must end in it, negated; or an empty text.
function negated(line) {
    if (line !~ /^ *(\} else )?if \([^;]*\) (\{|return.*;|continue;|break;)$/) return ""
    match(line, /\) (\{|return.*;|continue;|break;)$/)
    return substr(exchanged(line, "if (", "if (!("), 1, RSTART + 1) ")" substr(line, RSTART)
}

FILENAME != last_file { last_file = FILENAME; split("", seen) }
{
    if ($0 ~ /^ *(\/\/|#|static_assert|assert|template|using|inline constexpr|constexpr)/ || $0 ~ /^$/) next
    if ($0 ~ /\t/) next
    code = $0
    sub(/ *\/\/.*/, "", code)
    begin_row(FILENAME " " (++seen[code]) code)
    key = next_number()
    # Room that is made beforehand is there for speed alone.
    if (code ~ /\.reserve\(/) next
    # A case that does its work in one call forgets it.
    if (code ~ /^ +case [^?]*: .*\(.*\); (return 0|break);$/) {
        fault = code
        sub(/: .*\(.*\); /, ": ", fault)
        printf "%010d\t%s\t%d\t%s\t%s\n", key, FILENAME, FNR, $0, fault
        next
    }
    fault = ""
    # A statement of its own may be left out.
    droppable = code ~ /^ +[A-Za-z_][A-Za-z0-9_.:\[\]>-]*\(.*\);$/ && code !~ /^ +(return|delete|if|for|while)/ ||
                code ~ /^ +[a-z_][A-Za-z0-9_.\[\]>-]* (\+|-|\||&)?= [^{]*;$/ || code ~ /^ +(\+\+|--)[a-z_A-Z.>-]*;$/
    if (droppable && next_number() % 2 == 0) fault = "    ;"
    start = next_number() % count
    for (i = 1; i <= count && fault == ""; ++i) {
        which = (start + i) % count + 1
        # What a message is answered with is nothing to change: its senders only ask for kExitLoop and kWindowClosed.
        if (from[which] == "return 0;" && code ~ /^ +case (MSG_|SIGNAL_TYPE)/) continue
        fault = from[which] == "if (" ? negated(code) : exchanged(code, from[which], to[which])
    }
    if (fault == "" && droppable) fault = "    ;"
    if (fault == "" || fault == code) next
    printf "%010d\t%s\t%d\t%s\t%s\n", key, FILENAME, FNR, $0, fault
}

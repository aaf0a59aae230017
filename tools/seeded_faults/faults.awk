# Prints one small fault for each line of the display's sources that can take one, as
# key <TAB> file <TAB> line number <TAB> the line as it is <TAB> the line with its fault
# where the key is random: sorted by it, the first lines are a fair draw over all rooms. The same seed gives the same keys.

BEGIN {
    srand(seed)
    count = 0
    add(" < ", " <= "); add(" <= ", " < "); add(" > ", " >= "); add(" >= ", " > ")
    add(" == ", " != "); add(" != ", " == "); add(" && ", " || "); add(" || ", " && ")
    add(" + 1", " + 2"); add(" - 1", ""); add("true", "false"); add("false", "true"); add("return 0;", "return -1;")
    add("if (", "if (!("); add("return;", "")
}

function add(before, after) { ++count; from[count] = before; to[count] = after }

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

{
    if ($0 ~ /^ *(\/\/|#|static_assert|assert|template|using|inline constexpr|constexpr)/ || $0 ~ /^$/) next
    if ($0 ~ /\t/) next
    code = $0
    sub(/ *\/\/.*/, "", code)
    key = rand()
    fault = ""
    # A statement of its own may be left out.
    droppable = code ~ /^ +[A-Za-z_][A-Za-z0-9_.:\[\]>-]*\(.*\);$/ && code !~ /^ +(return|delete|if|for|while)/ ||
                code ~ /^ +[a-z_][A-Za-z0-9_.\[\]>-]* (\+|-|\||&)?= [^{]*;$/ || code ~ /^ +(\+\+|--)[a-z_A-Z.>-]*;$/
    if (droppable && rand() < 0.5) fault = "    ;"
    start = int(rand() * count)
    for (i = 1; i <= count && fault == ""; ++i) {
        which = (start + i) % count + 1
        fault = from[which] == "if (" ? negated(code) : exchanged(code, from[which], to[which])
        if (fault != "" && from[which] == "return;") fault = exchanged(code, "return;", ";")
    }
    if (fault == "" && droppable) fault = "    ;"
    if (fault == "" || fault == code) next
    printf "%.9f\t%s\t%d\t%s\t%s\n", key, FILENAME, FNR, $0, fault
}

# Doxygen's input filter. A comment in our headers stands for all the declarations under it up to an
# empty line, as in a pair of setter and getter; Doxygen wants such a group marked. The marks go on
# lines that are there, so that the numbers in its warnings stay right. A percent sign, as in the codes of
# tooltips, would be taken for an escape.

function flush_comment_and_declarations() {
    if (declarations > 1 && !opened) {
        sub(/\/\*\*/, "/**@{*/ /**", line[1])
        line[count] = line[count] " /**@}*/"
    }
    for (i = 1; i <= count; ++i)
        print line[i]
    count = declarations = opened = depth = 0
    state = "outside"
}

function keep() { line[++count] = $0 }

function read_declaration(    text, bare) {
    keep()
    bare = text = $0
    sub(/\/\/.*/, "", bare)
    sub(/\/\/.*/, "", text)
    depth += gsub(/[{(]/, "", text) - gsub(/[})]/, "", text)
    if (depth == 0 && bare ~ /[;}][ \t]*$/)
        ++declarations
    else if (bare ~ /{[ \t]*$/)
        opened = 1 # a class, an enumeration or a body of several lines: the comment is its own
    if (opened)
        flush_comment_and_declarations()
}

BEGIN { state = "outside" }

state == "declarations" && (/^[ \t]*$/ || /^[ \t]*(\/\*\*|};|public:|protected:|private:)/) {
    flush_comment_and_declarations()
}

state == "declarations" { read_declaration(); next }

state == "outside" && /^[ \t]*\/\*\*/ { state = "comment" }

state == "comment" {
    if (!/"[^"]*%/) # within quotation marks it is none
        gsub(/%/, "\\%")
    keep()
    if (/\*\//)
        state = "declarations"
    next
}

{ print }

END { flush_comment_and_declarations() }

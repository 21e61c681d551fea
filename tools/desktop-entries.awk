# Reads .desktop files and puts out a line for each application that menus show, of fields: file, name, kind, icon,
# whether it wants a terminal, the program that has to be there, the folder to start in, the words of its command.
# A field ends with the byte 037, except for the last, and a word with 036.
#
# locale is the user's, as in $LANG; desktop is $XDG_CURRENT_DESKTOP.

BEGIN {
    FS = "\n"
    kinds = "AudioVideo Multimedia Audio Multimedia Video Multimedia Development Development Game Games" \
        " Graphics Graphics Network Internet Office Office Settings Settings System System Utility Accessories"
    count = split(kinds, word, " ")
    for (i = 1; i < count; i += 2)
        kind_of[word[i]] = word[i + 1]
    modifier = language = country = locale
    sub(/\.[^@]*/, "", country)
    if (!sub(/^[^@]*@/, "@", modifier))
        modifier = ""
    sub(/@.*/, "", country)
    sub(/_.*/, "", language)
    sub(/[.@].*/, "", language)
    name_keys = "Name[" country modifier "]\nName[" country "]\nName[" language modifier "]\nName[" language "]\nName"
}

FNR == 1 {
    finish()
    file = FILENAME
    split("", value)
    in_entry = 0
}

{ sub(/\r$/, "") }
/^\[/ { in_entry = /^\[Desktop Entry\]/; next }
in_entry && match($0, /^[A-Za-z0-9-]+(\[[A-Za-z0-9_@.-]+\])? *=/) {
    key = substr($0, 1, RLENGTH - 1)
    sub(/ +$/, "", key)
    text = substr($0, RLENGTH + 1)
    sub(/^ +/, "", text)
    if (!(key in value) && length(text) <= 4000)
        value[key] = text
}
END { finish() }

function finish(    name) {
    name = best_name()
    if (value["Type"] != "Application" || is_true("Hidden") || is_true("NoDisplay") || !is_for_desktop() || name == "")
        return
    if (!split_command(unescaped(value["Exec"])))
        return
    print file fields(name) fields(kind()) fields(unescaped(value["Icon"])) fields(is_true("Terminal")) \
        fields(unescaped(value["TryExec"])) fields(unescaped(value["Path"])) "\037" words
}

function fields(text) {
    gsub(/[\001-\037\177]/, " ", text)
    return "\037" text
}

function is_true(key) { return value[key] == "true" || value[key] == "1" }

function best_name(    keys, count, i) {
    count = split(name_keys, keys, "\n")
    for (i = 1; i <= count; i++) {
        if (value[keys[i]] != "")
            return substr(unescaped(value[keys[i]]), 1, 100)
    }
    return ""
}

function has_any(list, wanted, separator,    items, count, i) {
    count = split(wanted, items, separator)
    for (i = 1; i <= count; i++) {
        if (items[i] != "" && index(";" list ";", ";" items[i] ";"))
            return 1
    }
    return 0
}

function is_for_desktop() {
    return ("OnlyShowIn" in value) ? has_any(value["OnlyShowIn"], desktop, ":") \
                                   : !has_any(value["NotShowIn"], desktop, ":")
}

function kind(    items, count, i) {
    count = split(value["Categories"], items, ";")
    for (i = 1; i <= count; i++) {
        if (items[i] in kind_of)
            return kind_of[items[i]]
    }
    return "Other"
}

function unescaped(text,    result, at, c) {
    while ((at = index(text, "\\"))) {
        c = substr(text, at + 1, 1)
        result = result substr(text, 1, at - 1) (c == "s" ? " " : c == "n" ? "\n" : c == "t" ? "\t" : c == "r" ? "\r" : c)
        text = substr(text, at + 2)
    }
    return result text
}

# Sets words, each with its end. False if there is none or a quotation has no end.
function split_command(text,    i, c, quote) {
    words = word_so_far = ""
    in_word = has_code = 0
    for (i = 1; i <= length(text); i++) {
        c = substr(text, i, 1)
        if (quote == "" && c ~ /[ \t\n]/) {
            end_word()
            continue
        }
        in_word = 1
        if (c == quote)
            quote = ""
        else if (quote == "" && (c == "\"" || c == "\047"))
            quote = c
        else if (c == "\\" && quote != "\047")
            word_so_far = word_so_far substr(text, ++i, 1)
        else if (c == "%" && substr(text, ++i, 1) != "%")
            has_code = 1
        else
            word_so_far = word_so_far c
    }
    end_word()
    return quote == "" && words != ""
}

# A word that is only the place of a file is no word: no file is given.
function end_word() {
    gsub(/[\n\036\037]/, " ", word_so_far)
    if (in_word && (word_so_far != "" || !has_code))
        words = words word_so_far "\036"
    word_so_far = ""
    in_word = has_code = 0
}

#!/usr/bin/env bash
# commands_test.sh ROOT GALLERY: every ./zr command and option, every page of the gallery, every link and every picture
# that a document names exists, and every picture is shown by one of them.
set -euo pipefail
root=$1
gallery=$2
cd "$root"
failed=0

complain() {
    echo "FAILED: $*" >&2
    failed=1
}

documents=(README.md Docs/*.md)
[[ ! -d Docs/guides ]] || documents+=(Docs/guides/*.md)
usage=$(./zr help)
options=$("$gallery" --help)
pages=$("$gallery" --list | cut -d ' ' -f 1)
commands=0

while IFS=: read -r document line words; do
    words=${words#\`}
    read -r -a words <<<"${words%%#*}"
    command=${words[1]:-}
    grep -qE "^  $command( |$)" <<<"$usage" || complain "$document:$line: ./zr has no command \"$command\""
    help=$usage
    [[ $command != gallery ]] || help=$options
    for ((i = 2; i < ${#words[@]}; i++)); do
        word=${words[i]}
        [[ $word != --* ]] || grep -qF -- "$word" <<<"$help" || complain "$document:$line: $command has no $word"
        [[ $word != --page ]] || grep -qxF -- "${words[i + 1]}" <<<"$pages" ||
            complain "$document:$line: the gallery has no page ${words[i + 1]}"
    done
    ((++commands))
done < <(grep -noE '^\./zr .*|`\./zr [^`]*' "${documents[@]}")
((commands)) || complain "no document names a command"

# A guide ends with its pages: each by its name, or the beginning of several names and "…".
mentions=0
while IFS=: read -r document line page; do
    case $page in
    *…) grep -q "^${page%…}" <<<"$pages" ;;
    *) grep -qxF -- "$page" <<<"$pages" ;;
    esac || complain "$document:$line: the gallery has no page $page"
    ((++mentions))
done < <(awk '/^See the pages? / { sub(/ of the gallery.*/, "")
    for (i = split($0, words, "`") - 1; i > 1; i -= 2) print FILENAME ":" FNR ":" words[i] }' "${documents[@]}")
((mentions)) || complain "no guide names its pages"

# The README's list of commands.
while read -r command; do
    grep -qE "^  $command( |$)" <<<"$usage" || complain "README.md: ./zr has no command \"$command\""
done < <(sed -n '/^More of `\.\/zr`/,/^$/p' README.md | grep -oE '`[a-z]+' | tr -d '`')

links=0
while IFS=: read -r document line target; do
    target=${target#*](}
    target=${target%)}
    target=${target%%#*}
    [[ -n $target && $target != *://* ]] || continue
    [[ -e $(dirname "$document")/$target ]] || complain "$document:$line: there is no $target"
    ((++links))
done < <(awk '/^```/ { code = !code }
    !code { for (rest = $0; match(rest, /\]\([^)]*\)/); rest = substr(rest, RSTART + RLENGTH))
                print FILENAME ":" FNR ":" substr(rest, RSTART, RLENGTH) }' "${documents[@]}")
((links)) || complain "no document has a link"

for picture in Docs/Images/*; do
    grep -qF -- "Images/${picture##*/})" "${documents[@]}" || complain "no document shows $picture"
done
exit "$failed"

# bash completion for elmworth                                -*- shell-script -*-
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# "elmworth __complete WORD..." tells what may stand in place of the last word, so that this file names no command:
# a line for each, with its meaning behind a tab, and "file" behind a tab alone where files may stand.

_elmworth() {
    local cur prev words cword line word typed
    COMPREPLY=()
    # Names hold colons, and "=" stands between nothing here.
    if declare -F _get_comp_words_by_ref >/dev/null; then
        _get_comp_words_by_ref -n := cur prev words cword
    else
        cur=${COMP_WORDS[COMP_CWORD]} words=("${COMP_WORDS[@]}") cword=$COMP_CWORD
    fi
    # What is typed has quotes and backslashes; what is compared has none.
    typed=${cur//\\/}
    typed=${typed#[\"\']}
    local given=("${words[@]:1:cword-1}")
    given=("${given[@]//\\/}")
    given=("${given[@]#[\"\']}")
    given=("${given[@]%[\"\']}")
    while IFS= read -r line; do
        word=${line%%$'\t'*}
        if [[ -z $word ]]; then
            compopt -o filenames 2>/dev/null
            while IFS= read -r word; do COMPREPLY+=("$word"); done < <(compgen -f -- "$typed")
        elif [[ ${word,,} == "${typed,,}"* ]]; then
            case $cur in
                [\"\']*) COMPREPLY+=("$word") ;;
                *) COMPREPLY+=("$(printf '%q' "$word")") ;;
            esac
        fi
    done < <("${words[0]}" __complete "${given[@]}" "$typed" 2>/dev/null)
    if declare -F __ltrim_colon_completions >/dev/null; then __ltrim_colon_completions "$cur"; fi
} && complete -F _elmworth elmworth

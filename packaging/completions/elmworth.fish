# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# "elmworth __complete WORD..." tells what may stand in place of the last word, so that this file names no command:
# a line for each, with its meaning behind a tab, and "file" behind a tab alone where files may stand.

function __elmworth_complete
    set -l words (commandline -opc) (commandline -ct)
    set -l candidates ($words[1] __complete $words[2..-1] 2>/dev/null)
    for candidate in $candidates
        if string match -q \t'*' -- $candidate
            __fish_complete_path (commandline -ct)
        else
            echo $candidate
        end
    end
end

complete -c elmworth -f -a '(__elmworth_complete)'

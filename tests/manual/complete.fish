#!/usr/bin/env -S fish --no-config
# Prints what fish offers for the last word of a command line: `complete.fish FOLDER WORD…`, with
# the folder that holds the completions.
source $argv[1]/$argv[2].fish
complete -C "$argv[2..]" | string replace -r '\t.*' ''

#!/usr/bin/env zsh
# Prints what zsh offers for the last word of a command line: `complete.zsh FOLDER WORD…`, with the
# folder that holds the completions. Needs a shell that people type into, and so a terminal.
zmodload zsh/zpty

export completions=$1 line="${(j: :)@[2,-1]}" offers=$(mktemp) TERM=vt100
{
    zpty shell zsh -f -i
    zpty -w shell "source ${(q)0:a:h}/offer.zsh"
    while zpty -r shell output; do :; done
    cat $offers
} always {
    rm -f $offers
}

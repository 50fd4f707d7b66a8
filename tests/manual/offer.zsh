# For a shell that people type into: at its next prompt, writes what it offers for $line into the
# file $offers, and ends.
fpath=($completions $fpath)
autoload -Uz compinit
compinit -D -u

# Everything that is offered goes through this one.
compadd() {
    local -a matches
    if (( ! ${@[(I)-[ADO]]} )); then
        builtin compadd -O matches "$@"
        (( $#matches )) && print -rl -- ${(Q)matches} >>$offers
    fi
    builtin compadd "$@"
}

zle -C offer complete-word _main_complete
zle-line-init() {
    BUFFER=$line
    CURSOR=$#BUFFER
    zle offer
    exit
}
zle -N zle-line-init

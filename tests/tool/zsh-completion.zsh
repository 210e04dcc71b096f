# Prints what an interactive zsh offers where TAB is pressed at the end of LINE: each candidate, and
# last the line as it is then. A zsh that shows nothing for SECONDS is given up, with what it showed
# before on standard error.
# Usage: zsh --no-rcs zsh-completion.zsh SITE-FUNCTIONS WORK SECONDS LINE
#   SITE-FUNCTIONS  the folder of the completions under test
#   WORK            a folder for what zsh keeps between two runs

# What the zsh in the pseudo terminal does first.
take_part() {
    PS1=$typing
    fpath=($site_functions $fpath)
    autoload -Uz compinit
    compinit -u -d $work/zcompdump

    typeset -ga offered
    compadd() {
        # Many calls only ask which words match; these add nothing.
        local -i before=$compstate[nmatches] added
        local -a hits
        builtin compadd "$@"
        added=$?
        if ((compstate[nmatches] > before)); then
            builtin compadd -O hits "$@"
            offered+=($hits)
        fi
        return added
    }
    offer() {
        zle complete-word
        # The names of files are offered as they are to be typed.
        print -rl -- ${(Q)offered} $BUFFER >$work/offered
        print -r -- $offering
    }
    zle -N offer
    bindkey '^I' offer
}

# Reads what the terminal shows up to the mark $1.
await() {
    local shown= chunk
    while [[ $shown != *$1* ]]; do
        sysread -i $terminal -t $seconds chunk || {
            print -u2 -r -- "zsh ended or hangs: no \"$1\" within $seconds s, but"$'\n'$shown
            exit 1
        }
        shown+=$chunk
    done
}

if [[ -o interactive ]]; then
    take_part
    return
fi

zmodload zsh/zpty zsh/system
export TERM=dumb PS1='<ready>' site_functions=$1 work=$2 typing='<typing>' offering='<offered>'
seconds=$3
zpty -b shell zsh --no-rcs --interactive || exit 1
terminal=$REPLY
await $PS1
zpty -w shell "source ${(q)0:a}"
await $typing
zpty -w -n shell "$4"$'\t'
await $offering
cat $work/offered

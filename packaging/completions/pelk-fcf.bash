# Completion of pelk-fcf(1) for bash.

_pelk_fcf_files() {
    # Folders, and the files with one of these endings.
    local ending
    mapfile -t COMPREPLY < <(
        compgen -d -- "$word"
        for ending in "$@"; do
            compgen -f -X "!*$ending" -- "$word"
        done
    )
    compopt -o filenames 2>/dev/null
}

_pelk_fcf_words() {
    mapfile -t COMPREPLY < <(compgen -W "$*" -- "$word")
}

_pelk_fcf() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]} index module=
    local common='--json --quiet --help'
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        case $word in
        -*) _pelk_fcf_words --help --version ;;
        *) _pelk_fcf_words create show list verify extract recipe diff ;;
        esac
        return
    fi

    case $previous in
    --module) _pelk_fcf_words DFE DFE2 GPM; return ;;
    --device)
        for ((index = 2; index < COMP_CWORD; ++index)); do
            [[ ${COMP_WORDS[index]} == --module ]] && module=${COMP_WORDS[index + 1]}
        done
        case $module in
        DFE) _pelk_fcf_words Interface_FPGA Processing_FPGA_1 Clock_Master_Device ;;
        DFE2) _pelk_fcf_words Processing_FPGA ;;
        GPM) _pelk_fcf_words Interface_FPGA Processing_FPGA_1 Processing_FPGA_2 Processing_FPGA_3 ;;
        *) _pelk_fcf_words Interface_FPGA Processing_FPGA Processing_FPGA_1 Processing_FPGA_2 \
            Processing_FPGA_3 Clock_Master_Device ;;
        esac
        return ;;
    --config) _pelk_fcf_words 1 2 3 4 5 6 7 8 9 10; return ;;
    --date-format) _pelk_fcf_words locale iso; return ;;
    --type) _pelk_fcf_words image companion; return ;;
    --swap) _pelk_fcf_words bits bytes halfwords; return ;;
    --pad-to) _pelk_fcf_words page block; return ;;
    --like) _pelk_fcf_files .fcf .txt .json; return ;;
    --bin) _pelk_fcf_files .bin .bit; return ;;
    --companion) _pelk_fcf_files .txt; return ;;
    --output) _pelk_fcf_files ''; return ;;
    --digest)
        if [[ $command == verify ]]; then
            _pelk_fcf_files ''
            return
        fi ;;
    --ignore | --author | --ci | --version | --description | --date-time | --function | --field) return ;;
    esac

    if [[ $word == -* ]]; then
        case $command in
        create) _pelk_fcf_words --author --ci --module --device --config --version --description \
            --function --like --output --date-time --date-format --no-companion --digest --force \
            --strict --swap --pad-to --if-changed "$common" ;;
        verify) _pelk_fcf_words --bin --swap --companion --no-companion --digest --no-digest \
            --require-digest --type "$common" ;;
        extract) _pelk_fcf_words --output --no-companion --no-digest --force "$common" ;;
        show) _pelk_fcf_words --field --check "$common" ;;
        list) _pelk_fcf_words --csv --digest "$common" ;;
        diff) _pelk_fcf_words --ignore "$common" ;;
        recipe) _pelk_fcf_words "$common" ;;
        esac
        return
    fi
    case $command in
    create) _pelk_fcf_files .bin .bit ;;
    list | extract) _pelk_fcf_files .fcf ;;
    show | verify | recipe | diff) _pelk_fcf_files .fcf .txt ;;
    esac
}

complete -F _pelk_fcf pelk-fcf

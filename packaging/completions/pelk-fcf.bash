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
    local command=${COMP_WORDS[1]} index module= commands='create show list verify extract recipe diff'
    local common='--json --quiet --help'
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        case $word in
        -*) _pelk_fcf_words --help --version ;;
        *) _pelk_fcf_words "$commands" help ;;
        esac
        return
    fi

    # Bash takes the = of --module=DFE for a word of its own.
    if [[ $word == = ]]; then
        word=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    case $previous in
    --module) _pelk_fcf_words DFE DFE2 GPM; return ;;
    --device)
        for ((index = 2; index < COMP_CWORD; ++index)); do
            [[ ${COMP_WORDS[index]} == --module ]] || continue
            module=${COMP_WORDS[index + 1]}
            [[ $module == = ]] && module=${COMP_WORDS[index + 2]}
        done
        case $module in
        DFE) _pelk_fcf_words Interface_FPGA Processing_FPGA_1 Clock_Master_Device ;;
        DFE2) _pelk_fcf_words Processing_FPGA ;;
        GPM) _pelk_fcf_words Interface_FPGA Processing_FPGA_1 Processing_FPGA_2 Processing_FPGA_3 ;;
        *) _pelk_fcf_words Interface_FPGA Processing_FPGA Processing_FPGA_1 Processing_FPGA_2 \
            Processing_FPGA_3 Clock_Master_Device ;;
        esac
        return ;;
    --config | --slot) _pelk_fcf_words 1 2 3 4 5 6 7 8 9 10; return ;;
    --date-format) _pelk_fcf_words locale iso; return ;;
    --type) _pelk_fcf_words image companion; return ;;
    --swap) _pelk_fcf_words bits bytes halfwords; return ;;
    --pad-to) _pelk_fcf_words page block; return ;;
    --like) _pelk_fcf_files .fcf .txt .json; return ;;
    --bin) _pelk_fcf_files .bin .bit; return ;;
    --companion) _pelk_fcf_files .txt; return ;;
    --output | -o | --depfile) _pelk_fcf_files ''; return ;;
    --digest)
        if [[ $command == verify ]]; then
            _pelk_fcf_files ''
            return
        fi ;;
    --depfile-target | --ignore | --offset | --author | --ci | --version | --description | --date-time | --function) return ;;
    --field)
        _pelk_fcf_words author binBlocks binFileSize binPages ciNumber configNumber date description \
            device deviceCode fileName functions module moduleCode time totalBlocks \
            totalPages totalSize version versionMajor versionMinor
        return ;;
    esac

    if [[ $word == -* ]]; then
        case $command in
        create) _pelk_fcf_words --author --ci --module --device --config --version --description \
            --function --like --output --date-time --date-format --no-companion --digest --force \
            --strict --depfile --depfile-target --swap --pad-to --if-changed --relabel "$common" ;;
        verify) _pelk_fcf_words --bin --swap --companion --no-companion --digest --no-digest \
            --require-digest --like --offset --type "$common" ;;
        extract) _pelk_fcf_words --output --offset --no-companion --no-digest --force "$common" ;;
        show) _pelk_fcf_words --field --check "$common" ;;
        list) _pelk_fcf_words --csv --digest "$common" ;;
        diff) _pelk_fcf_words --ignore "$common" ;;
        recipe) _pelk_fcf_words --check "$common" ;;
        esac
        return
    fi
    case $command in
    help) ((COMP_CWORD == 2)) && _pelk_fcf_words "$commands" ;;
    create)
        case " ${COMP_WORDS[*]} " in
        *' --relabel '*) _pelk_fcf_files .fcf ;;
        *) _pelk_fcf_files .bin .bit ;;
        esac ;;
    list | extract) _pelk_fcf_files .fcf ;;
    recipe) _pelk_fcf_files .fcf .txt .json ;;
    show | verify | diff) _pelk_fcf_files .fcf .txt ;;
    esac
}

complete -F _pelk_fcf pelk-fcf

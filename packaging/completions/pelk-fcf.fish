# Completion of pelk-fcf(1) for fish.

function __pelk_fcf_command
    set -l words (commandline -opc)
    test (count $words) -ge 2; and contains -- $words[2] $argv
end

function __pelk_fcf_devices
    set -l words (commandline -opc)
    set -l index (contains -i -- --module $words)
    set -l module (string match -r -- '^--module=(.*)' $words)[2]
    test -n "$index"; and set module $words[(math $index + 1)]
    switch "$module"
        case DFE
            printf '%s\n' Interface_FPGA Processing_FPGA_1 Clock_Master_Device
        case DFE2
            printf '%s\n' Processing_FPGA
        case GPM
            printf '%s\n' Interface_FPGA Processing_FPGA_1 Processing_FPGA_2 Processing_FPGA_3
        case '*'
            printf '%s\n' Interface_FPGA Processing_FPGA Processing_FPGA_1 Processing_FPGA_2 \
                Processing_FPGA_3 Clock_Master_Device
    end
end

# Folders, and the files with one of these endings.
function __pelk_fcf_files
    set -l endings (string join '|' / $argv | string replace -a . '\\.')
    __fish_complete_suffix $argv[1] | string match -r -- ".*(?:$endings)\$"
end

set -l fields author binBlocks binFileSize binPages ciNumber configNumber date description \
    device deviceCode fileName functions module moduleCode time totalBlocks \
    totalPages totalSize version versionMajor versionMinor
set -l commands create show list verify extract recipe diff
complete -c pelk-fcf -f
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -l version -d 'Print the version and exit'
complete -c pelk-fcf -l help -d 'Print help and exit'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a create -d 'Make an image of a binary'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a show -d 'List headers'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a verify -d 'Say whether files are valid'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a list -d 'List images, one line each'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a extract -d 'Take the payload out'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a recipe -d 'Write the recipe of a build'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a diff -d 'Say how two files differ'
complete -c pelk-fcf -n "not __pelk_fcf_command $commands help" -a help -d 'Print help'
complete -c pelk-fcf -n '__pelk_fcf_command help' -a "$commands"
complete -c pelk-fcf -n '__pelk_fcf_command show' -x -l field -a "$fields" -d 'Print this field alone'
complete -c pelk-fcf -n '__pelk_fcf_command show' -l check -d 'End with 1 if a file is not valid'

complete -c pelk-fcf -n '__pelk_fcf_command list' -l csv -d 'Give comma-separated values'
complete -c pelk-fcf -n '__pelk_fcf_command list' -l digest -d 'Compute and compare each SHA-256'

complete -c pelk-fcf -n '__pelk_fcf_command diff' -x -l ignore -d 'Leave these fields out'

complete -c pelk-fcf -n "__pelk_fcf_command $commands" -l json -d 'Give the result as JSON'
complete -c pelk-fcf -n "__pelk_fcf_command $commands" -l quiet -d 'Show no progress and no notes'
complete -c pelk-fcf -n '__pelk_fcf_command create; and not contains -- --relabel (commandline -opc)' \
    -a '(__pelk_fcf_files .bin .bit)'
complete -c pelk-fcf -n '__pelk_fcf_command create; and contains -- --relabel (commandline -opc)' \
    -a '(__pelk_fcf_files .fcf)'
complete -c pelk-fcf -n '__pelk_fcf_command create' -l relabel -d 'Take the payload of an image'
complete -c pelk-fcf -n '__pelk_fcf_command list extract' -a '(__pelk_fcf_files .fcf)'
complete -c pelk-fcf -n '__pelk_fcf_command show verify diff' -a '(__pelk_fcf_files .fcf .txt)'
complete -c pelk-fcf -n '__pelk_fcf_command recipe' -a '(__pelk_fcf_files .fcf .txt .json)'
complete -c pelk-fcf -n '__pelk_fcf_command recipe' -l check -d 'Check a recipe'

complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l author -d 'Who built it'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l ci -d 'Configuration item number'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l module -a 'DFE DFE2 GPM' -d 'Module'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l device -a '(__pelk_fcf_devices)' -d 'Device'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l config -a '(seq 10)' -d 'Flash slot'
# Its other name is offered to nobody, but its values are.
complete -c pelk-fcf -n '__pelk_fcf_command create; and string match -q -- "*--slot*" (commandline -pc)' \
    -x -l slot -a '(seq 10)' -d 'Flash slot'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l version -d 'Version of the build'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l description -d 'Text, or @file'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l function -d 'Name, author, CI, description'
complete -c pelk-fcf -n '__pelk_fcf_command create verify' -x -l like -a '(__pelk_fcf_files .fcf .txt .json)' \
    -d 'Take the rest from a file'
complete -c pelk-fcf -n '__pelk_fcf_command create extract' -r -F -s o -l output -d 'Where to write'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l date-time -d 'YYYY-MM-DDTHH:MM:SS'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l date-format -a 'locale iso' -d 'Date format'
complete -c pelk-fcf -n '__pelk_fcf_command create' -l no-companion -d 'Write no companion'
complete -c pelk-fcf -n '__pelk_fcf_command create' -l digest -d 'Write the SHA-256 beside the image'
complete -c pelk-fcf -n '__pelk_fcf_command create extract' -l force -d 'Replace outputs that exist'
complete -c pelk-fcf -n '__pelk_fcf_command create verify' -x -l swap -a 'bits bytes halfwords' -d 'Swap words'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l pad-to -a 'page block' -d 'Fill with 0xFF'
complete -c pelk-fcf -n '__pelk_fcf_command create' -l if-changed -d 'Leave unchanged outputs untouched'
complete -c pelk-fcf -n '__pelk_fcf_command create' -r -F -l depfile -d 'List what was read'
complete -c pelk-fcf -n '__pelk_fcf_command create' -x -l depfile-target -d 'What depends on that'
complete -c pelk-fcf -n '__pelk_fcf_command create' -l strict -d 'Take warnings for errors'

complete -c pelk-fcf -n '__pelk_fcf_command verify extract' -l no-companion -d 'Leave the companion alone'
complete -c pelk-fcf -n '__pelk_fcf_command verify extract' -l no-digest -d 'Leave the digest alone'
complete -c pelk-fcf -n '__pelk_fcf_command verify extract' -x -l offset -d 'Where the image begins'
complete -c pelk-fcf -n '__pelk_fcf_command verify' -l require-digest -d 'Want a digest'
complete -c pelk-fcf -n '__pelk_fcf_command verify' -x -l bin -a '(__pelk_fcf_files .bin .bit)' \
    -d 'The binary to compare with'
complete -c pelk-fcf -n '__pelk_fcf_command verify' -x -l companion -a '(__pelk_fcf_files .txt)' \
    -d 'The companion to compare with'
complete -c pelk-fcf -n '__pelk_fcf_command verify' -r -F -l digest \
    -d 'A list of SHA-256'
complete -c pelk-fcf -n '__pelk_fcf_command verify' -x -l type -a 'image companion' -d 'What the file is'

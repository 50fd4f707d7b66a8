# Completes skintool's command lines in fish.

# Whether the command line is of this form; the one without a word is "".
function __skintool_is
    set -l words (commandline -opc)
    set -l form
    contains -- "$words[2]" corpus corpus-report gallery info preview windows
    and set form $words[2]
    test "$form" = "$argv"
end

# Whether the word in hand is the first one, or the first one of a sub-command.
function __skintool_at_start
    set -l words (commandline -opc)
    if __skintool_is ''
        test (count $words) -eq 1
    else
        test (count $words) -eq 2
    end
end

# Folders, and files with any of these extensions.
function __skintool_files
    set -l pattern '/'
    set -q argv[1]
    and set pattern '(?:/|\.(?:'(string join '|' -- $argv)'))'
    complete -C "'' "(commandline -ct) | string match -ri "^.*$pattern\$"
end

complete -c skintool -f
complete -c skintool -n __skintool_at_start -s h -l help -d 'Print a summary of the command line'
complete -c skintool -n __skintool_at_start -l version -d 'Print the version'

set -l commands 'test (count (commandline -opc)) -eq 1'
complete -c skintool -n $commands -a info -d 'Tell everything about a skin, or print it as JSON'
complete -c skintool -n $commands -a windows -d 'Write pictures of all windows of a skin'
complete -c skintool -n $commands -a preview -d 'Write an HTML page that shows a skin'
complete -c skintool -n $commands -a gallery -d 'Make a page of all skins of a folder'
complete -c skintool -n $commands -a corpus -d 'Try every skin of a collection'
complete -c skintool -n $commands -a corpus-report -d 'Sum up what the run of a collection found'

set -l single "__skintool_is ''"
complete -c skintool -n $single -a '(__skintool_files wsz zip)'
complete -c skintool -n $single -s v -l verbose -d 'Print what the loader noticed'
complete -c skintool -n $single -l png -x -a '(__skintool_files png)' -d 'Write the main window'
complete -c skintool -n $single -l state -x -a 'webamp idle' -d 'What the player does'
complete -c skintool -n $single -l scale -x -d 'Draw each pixel so many times as large'
complete -c skintool -n $single -l compare -x -a '(__skintool_files)' -d 'Compare with the pictures of a folder'
complete -c skintool -n $single -l no-region -d 'Draw the whole rectangle'

complete -c skintool -n '__skintool_is info' -a '(__skintool_files wsz zip)'
complete -c skintool -n '__skintool_is info' -l json -d 'Print one JSON object'

complete -c skintool -n '__skintool_is windows' -a '(__skintool_files wsz zip)'
complete -c skintool -n '__skintool_is windows' -l out -x -a '(__skintool_files)' -d 'The folder for the pictures'
complete -c skintool -n '__skintool_is windows' -l scale -x -d 'Draw each pixel so many times as large'
complete -c skintool -n '__skintool_is windows' -l state -x -a 'webamp idle' -d 'What the player does'
complete -c skintool -n '__skintool_is windows' -l no-region -d 'Draw whole rectangles'

complete -c skintool -n '__skintool_is preview' -a '(__skintool_files wsz zip)'
complete -c skintool -n '__skintool_is preview' -l out -x -a '(__skintool_files html mhtml)' -d 'Where to write'
complete -c skintool -n '__skintool_is preview' -l mhtml -d 'Write a MIME document'

complete -c skintool -n '__skintool_is gallery' -a '(__skintool_files)'
complete -c skintool -n '__skintool_is gallery' -l out -x -a '(__skintool_files)' -d 'The folder for the page'
complete -c skintool -n '__skintool_is gallery' -l scale -x -d 'Draw each pixel so many times as large'

complete -c skintool -n '__skintool_is corpus' -a '(__skintool_files)'
complete -c skintool -n '__skintool_is corpus' -l out -x -a '(__skintool_files)' -d 'The folder for the results'
complete -c skintool -n '__skintool_is corpus' -l resume -d 'Keep the results and do what is left'
complete -c skintool -n '__skintool_is corpus' -l timeout -x -d 'The most seconds that a skin may take'
complete -c skintool -n '__skintool_is corpus' -l max-memory -x -d 'The most MiB that the process may hold'
complete -c skintool -n '__skintool_is corpus' -l sample -x -d 'Run only so many skins, drawn by chance'
complete -c skintool -n '__skintool_is corpus' -l seed -x -d 'The chance'
complete -c skintool -n '__skintool_is corpus' -l manifest -x -a '(__skintool_files json)' -d 'What goes with the results'

complete -c skintool -n '__skintool_is corpus-report' -a '(__skintool_files jsonl)'
complete -c skintool -n '__skintool_is corpus-report' -l markdown -x -a '(__skintool_files md)' -d 'The report to write'
complete -c skintool -n '__skintool_is corpus-report' -l json -x -a '(__skintool_files json)' -d 'The summary to write'
complete -c skintool -n '__skintool_is corpus-report' -l env -x -a '(__skintool_files json)' -d 'A document on the machine and the build'
complete -c skintool -n '__skintool_is corpus-report' -l sample -x -d 'How many skins the gate looks at'
complete -c skintool -n '__skintool_is corpus-report' -l seed -x -d 'Which ones'
complete -c skintool -n '__skintool_is corpus-report' -l crashes -x -a '(__skintool_files)' -d 'A folder with crash logs'

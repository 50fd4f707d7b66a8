# Completes velmar-thumbnailer's command lines in fish.

# How many files stand before the word in hand.
function __velmar_thumbnailer_files
    set -l words (commandline -opc)
    set -l files 0
    set -l is_size false
    for word in $words[2..]
        if test "$is_size" = true
            set is_size false
        else if test "$word" = -s
            set is_size true
        else
            set files (math $files + 1)
        end
    end
    echo $files
end

# Folders, and files like the pattern.
function __velmar_thumbnailer_paths
    complete -C "'' "(commandline -ct) | string match -ri "^.*(?:/|$argv)\$"
end

complete -c velmar-thumbnailer -f
complete -c velmar-thumbnailer -n 'test (__velmar_thumbnailer_files) -eq 0' -a '(__velmar_thumbnailer_paths "\.(?:wsz|zip)")'
complete -c velmar-thumbnailer -n 'test (__velmar_thumbnailer_files) -eq 1' -a '(__velmar_thumbnailer_paths "\.png")'
# The sizes are those that desktops ask for.
complete -c velmar-thumbnailer -s s -x -a '128 256 512 1024' -d 'The most pixels that a side may have'
set -l at_start 'test (count (commandline -opc)) -eq 1'
complete -c velmar-thumbnailer -n $at_start -s h -l help -d 'Print a summary of the command line'
complete -c velmar-thumbnailer -n $at_start -l version -d 'Print the version'

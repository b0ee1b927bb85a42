# fish completion of vorn. Its options are held against those that vorn prints by a test.

# Scores, the files that come of them, and folders on the way.
function __vorn_files
    set -l begun (commandline -ct)
    for ending in vorn sco mid
        set -l files $begun*.$ending
        string join \n $files
    end
    __fish_complete_directories $begun ''
end

complete -c vorn -f -a '(__vorn_files)'
complete -c vorn -s l -r -F -d 'Copy the messages to a file'
complete -c vorn -s m -d 'Write the first block as a MIDI file'
complete -c vorn -s s -d 'Leave out warnings and notes'
complete -c vorn -s t -d 'Show the tempo map at work'
complete -c vorn -s x -r -F -d 'Write every line as it reads after macros and constants'

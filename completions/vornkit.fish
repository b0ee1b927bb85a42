# fish completion of vornkit. Its options are held against --help by a test.

function __vornkit_codes
    vornkit explain 2>/dev/null | string replace -rf "^($argv[1]\w*) +(.*)" '$1\t$2'
end

function __vornkit_words
    vornkit words --format json 2>/dev/null | string replace -rf '^ *"word": "([a-z0-9]+)",$' '$1' | sort -u
end

function __vornkit_pfields
    string join \n p(seq 4 16)
end

# Files with one of these endings, and folders on the way to them.
function __vornkit_files
    set -l begun (commandline -ct)
    for ending in $argv
        set -l files $begun*.$ending
        string join \n $files
    end
    __fish_complete_directories $begun ''
end

function __vornkit_on
    __fish_seen_subcommand_from $argv
end

complete -c vornkit -f
complete -c vornkit -s h -l help -d 'Show an example and the options'
complete -c vornkit -n __fish_use_subcommand -l version -d 'Print the version'
complete -c vornkit -n __fish_use_subcommand -a new -d 'Begin a piece'
complete -c vornkit -n __fish_use_subcommand -a check -d 'Tell the mistakes of scores and how to mend them'
complete -c vornkit -n __fish_use_subcommand -a explain -d 'Tell what the code of a message means'
complete -c vornkit -n __fish_use_subcommand -a events -d 'Write every event as data'
complete -c vornkit -n __fish_use_subcommand -a midi -d 'Write all blocks as a MIDI file'
complete -c vornkit -n __fish_use_subcommand -a picture -d 'Draw a score over time'
complete -c vornkit -n __fish_use_subcommand -a play -d 'Play a score, or write its sound'
complete -c vornkit -n __fish_use_subcommand -a vary -d 'Make the same piece with other seeds or values'
complete -c vornkit -n __fish_use_subcommand -a watch -d 'Check, draw and render a score whenever it is saved'
complete -c vornkit -n __fish_use_subcommand -a words -d 'List the words of the language'

complete -c vornkit -n '__vornkit_on check events midi picture vary watch' -a '(__vornkit_files vorn)'
complete -c vornkit -n '__vornkit_on play' -a '(__vornkit_files vorn orc mid)'
complete -c vornkit -n '__vornkit_on watch' -a '(__vornkit_files orc)'
complete -c vornkit -n '__vornkit_on explain' -a "(__vornkit_codes '')"
complete -c vornkit -n '__vornkit_on words' -a '(__vornkit_words)'

complete -c vornkit -n '__vornkit_on check events midi picture play vary watch' -l relative \
    -d 'Look includes up beside the including file'
complete -c vornkit -n '__vornkit_on check explain words' -l format -x -a 'text json' \
    -d 'Text for people, json for programs'
complete -c vornkit -n '__vornkit_on check' -l midi -d 'Look for what vorn -m leaves out or bends'
complete -c vornkit -n '__vornkit_on check' -l ignore -x -a '(__vornkit_codes L)' -d 'Leave out these notes'
complete -c vornkit -n '__vornkit_on events picture' -s o -l output -x -a '(__vornkit_files json csv svg png html)' -d 'The file'
complete -c vornkit -n '__vornkit_on events' -l format -x -a 'json csv' -d 'Whatever the file is called'
complete -c vornkit -n '__vornkit_on events' -l rests -d 'Rests, too'
complete -c vornkit -n '__vornkit_on midi play' -l pitch -x -a '(__vornkit_pfields)' -d 'The p-field of the pitch'
complete -c vornkit -n '__vornkit_on picture' -l pitch -x -a 'none (__vornkit_pfields)' -d 'The p-field of the pitch'
complete -c vornkit -n '__vornkit_on picture play' -l level -x -a '(__vornkit_pfields)' -d 'The p-field of the level'
complete -c vornkit -n '__vornkit_on midi' -l velocity -x -a '(__vornkit_pfields)' -d 'The p-field of the level'
complete -c vornkit -n '__vornkit_on midi' -l channel -x -d 'instrument=channel'
complete -c vornkit -n '__vornkit_on midi' -l program -x -d 'instrument=program'
complete -c vornkit -n '__vornkit_on midi' -l quiet -d 'Leave out the notes on what was scaled'
complete -c vornkit -n '__vornkit_on picture' -l from -x -d 'Second at which the picture begins'
complete -c vornkit -n '__vornkit_on picture' -l to -x -d 'Second at which it ends'
complete -c vornkit -n '__vornkit_on picture' -l width -x -d 'Width in pixels'
complete -c vornkit -n '__vornkit_on picture' -l title -x -d 'The title'
complete -c vornkit -n '__vornkit_on picture' -l theme -x -a 'light dark' -d 'Light or dark'
complete -c vornkit -n '__vornkit_on play watch' -l wav -x -a '(__vornkit_files wav)' -d 'Write the sound to this file'
complete -c vornkit -n '__vornkit_on play' -l midi -d 'Play the score as MIDI'
complete -c vornkit -n '__vornkit_on play' -l soundfont -x -a '(__vornkit_files sf2 sf3)' -d 'The sounds for MIDI'
complete -c vornkit -n '__vornkit_on vary' -s o -l output -x -a '(__fish_complete_directories)' -d 'The folder'
complete -c vornkit -n '__vornkit_on vary' -l count -x -d 'How many'
complete -c vornkit -n '__vornkit_on vary' -l first -x -d 'The first number'
complete -c vornkit -n '__vornkit_on vary' -l set -x -d 'name=from..to'
complete -c vornkit -n '__vornkit_on vary' -l render -x -a '(__vornkit_files orc)' -d 'An orchestra to render a sound of each'
complete -c vornkit -n '__vornkit_on vary' -l jobs -x -d 'Processes at a time'
complete -c vornkit -n '__vornkit_on vary' -l only -x -d 'Make these variants alone'
complete -c vornkit -n '__vornkit_on vary' -l keep -x -d 'Write the scores of these'
complete -c vornkit -n '__vornkit_on vary' -l snakemake -d 'Write a workflow, run nothing'
complete -c vornkit -n '__vornkit_on watch' -l picture -x -a '(__vornkit_files svg png html)' -d 'A picture to be kept new'

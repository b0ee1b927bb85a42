# For scripts/demo, which builds the programs once to try them: sources of a folder are compiled as
# one, and the headers that cost most are read once for all others.

set(COMPILED_AS_ONE src/input src/preproc src/blocks src/generators src/output kit/run kit/diagnose
    kit/lint kit/events kit/midi kit/picture kit/orchestra kit/vary kit/command)
# Inner names that more than one file of a folder has: each file of what is compiled as one gets its own.
set(INNER_NAMES ROWS TABLE LINE_HEIGHT JSON_INDENT JSON_VERSION dumped is_flat_d
    advise_brace advise_comma advise_condition advise_equals advise_misspelt advise_sharp lower is_in_beats is_note)
# Files of these whose inner names meet those of a neighbour in other ways.
set(STANDING_ALONE diagnose/foreign diagnose/marks diagnose/unnumbered picture/score_view picture/theme)
# What large libraries cost is paid once each, rather than by each file that uses them; for the command
# twice, as it costs most, for as many processors.
set(GROUPS json command_too)
set(json events/events_json diagnose/explanation_form diagnose/json_form language/word_form vary/workflow vary/record)
set(command_too command/file_watcher command/keep_variants command/variant command/vary command/vary_folder
    command/worker_processes)

set(RENAMED "#define OWN_NAME(name, file) name##file\n#define NAME_OF(name, file) OWN_NAME(name, file)")
foreach(name ${INNER_NAMES})
    string(APPEND RENAMED "\n#undef ${name}\n#define ${name} NAME_OF(${name}_, FILE_ID)")
endforeach()

function(compile_by_folder target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP
        UNITY_BUILD_UNIQUE_ID FILE_ID UNITY_BUILD_CODE_BEFORE_INCLUDE "${RENAMED}")
    get_target_property(sources ${target} SOURCES)
    string(REPLACE ";" "|" alone "${STANDING_ALONE}")
    foreach(folder ${COMPILED_AS_ONE})
        set(joined ${sources})
        list(FILTER joined INCLUDE REGEX "/${folder}/[^/]*\\.cpp$")
        list(FILTER joined EXCLUDE REGEX "/(${alone})")
        string(REPLACE "/" "_" group ${folder})
        set_source_files_properties(${joined} PROPERTIES UNITY_GROUP ${group})
    endforeach()
    foreach(group ${GROUPS})
        string(REPLACE ";" "|" names "${${group}}")
        set(joined ${sources})
        list(FILTER joined INCLUDE REGEX "/(${names})\\.cpp$")
        set_source_files_properties(${joined} PROPERTIES UNITY_GROUP ${group})
    endforeach()
endfunction()

function(build_quickly)
    compile_by_folder(vorn_core)
    if(TARGET vorn_kit)
        compile_by_folder(vorn_kit)
        compile_by_folder(vorn_kit_command)
        target_precompile_headers(vorn_kit PRIVATE <algorithm> <map> <optional> <set> <span> <string> <vector>)
    endif()
endfunction()
cmake_language(DEFER CALL build_quickly)

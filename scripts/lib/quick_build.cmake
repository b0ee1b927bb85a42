# For scripts/demo, which builds the programs once to try them: sources of a folder are compiled as
# one where their names allow it, and the headers that cost most are read once for all others.

set(COMPILED_AS_ONE src/input src/preproc src/blocks src/generators src/output kit/run kit/diagnose
    kit/lint kit/events kit/midi kit/picture kit/orchestra kit/vary kit/command)
# Files of these whose inner names meet those of a neighbour.
set(STANDING_ALONE diagnose/advice_ diagnose/.*_explanations diagnose/foreign diagnose/marks diagnose/unnumbered
    lint/tempo_rules lint/value_rules picture/legend picture/picture picture/score_view picture/theme)
# What large libraries cost is paid twice, rather than by each that uses them; two, for as many processors.
set(GROUPS json json_too command_too)
set(json events/events_json diagnose/explanation_form vary/workflow vary/record)
set(json_too diagnose/json_form language/word_form)
set(command_too command/file_watcher command/keep_variants command/variant command/vary command/vary_folder
    command/worker_processes)

function(compile_by_folder target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
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

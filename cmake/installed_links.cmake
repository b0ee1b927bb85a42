# Run while installing, with `folder`, where the documents are put: pages for those who work on Vorn lead into
# the sources, which are not installed. A link to what is not there becomes the name that it shows.

function(unlink_missing page)
    file(READ ${page} text)
    get_filename_component(beside ${page} DIRECTORY)
    set(rest "${text}")
    while(rest MATCHES "\\]\\(([^)#: ]+)")
        set(target ${CMAKE_MATCH_1})
        string(REPLACE "](${target}" "" rest "${rest}")
        if(NOT EXISTS ${beside}/${target})
            string(REPLACE "." "\\." pattern ${target})
            string(REGEX REPLACE "\\[([^]]*)\\]\\(${pattern}(#[^)]*)?\\)" "`\\1`" text "${text}")
        endif()
    endwhile()
    file(WRITE ${page} "${text}")
endfunction()

file(GLOB pages ${folder}/CONTRIBUTING.md ${folder}/docs/development/*.md)
foreach(page ${pages})
    unlink_missing(${page})
endforeach()

# SPDX-License-Identifier: Apache-2.0
# velmora_copy_video_files(target)
#
# Copies the video helper and the video module into the folder "velmora" beside a program or plugin
# whenever that is linked. The library looks for them there if it is contained in the target, or lies
# beside it. The shared library needs no copies where it was built and where it is installed.
function(velmora_copy_video_files target)
    if(TARGET Velmora::VideoHelper) # there is none for macOS
        set(folder $<TARGET_FILE_DIR:${target}>/velmora)
        add_custom_command(TARGET ${target} POST_BUILD VERBATIM
            COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
            COMMAND ${CMAKE_COMMAND} -E copy_if_different
                $<TARGET_FILE:Velmora::VideoHelper> $<TARGET_FILE:Velmora::VideoModule> ${folder})
    endif()
endfunction()

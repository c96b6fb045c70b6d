# application_icon_drawing(PIXELS RESULT): sets RESULT to the drawing for an icon of that width. Below 32 pixels, the
# details of the large drawing would blur.
function(application_icon_drawing pixels result)
    set(drawing org.glidemap.Glidemap)
    if(pixels LESS 32)
        set(drawing org.glidemap.Glidemap-small)
    endif()
    set(${result} ${CMAKE_SOURCE_DIR}/packaging/icons/${drawing}.svg PARENT_SCOPE)
endfunction()

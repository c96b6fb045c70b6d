# application_icon_drawing(PIXELS RESULT): sets RESULT to the icon's drawing for that many pixels. Below 32 pixels the
# details of the large drawing would blur.
function(application_icon_drawing pixels result)
    set(drawing org.glidemap.Glidemap)
    if(pixels LESS 32)
        set(drawing org.glidemap.Glidemap-small)
    endif()
    set(${result} ${CMAKE_SOURCE_DIR}/packaging/icons/${drawing}.svg PARENT_SCOPE)
endfunction()

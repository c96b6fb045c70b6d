# application_icon_drawing(PIXELS RESULT): the drawing of the application's icon that is meant for that many pixels.
# Below 32 the details of the large one are a blur.
function(application_icon_drawing pixels result)
    set(drawing org.glidemap.Glidemap)
    if(pixels LESS 32)
        set(drawing org.glidemap.Glidemap-small)
    endif()
    set(${result} ${CMAKE_SOURCE_DIR}/packaging/icons/${drawing}.svg PARENT_SCOPE)
endfunction()

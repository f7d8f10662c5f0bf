# A layer is one folder of src/ and one static library. Its headers are reachable as
# "<folder>/<file>" through an include root of its own, so that a layer only sees the layers
# that it links: an include that runs the wrong way does not compile.
#
#   quenoria_layer(store LINKS quenoria_model)            -> target quenoria_store
#   quenoria_layer(platform/linux LINKS quenoria_platform) -> target quenoria_platform_linux
function(quenoria_layer folder)
    cmake_parse_arguments(LAYER "" "" "LINKS;PRIVATE_LINKS" ${ARGN})
    string(REPLACE "/" "_" name ${folder})
    set(target quenoria_${name})
    set(root ${CMAKE_BINARY_DIR}/include/${name})

    set(here ${CMAKE_SOURCE_DIR}/src/${folder})
    file(GLOB sources CONFIGURE_DEPENDS ${here}/*.cpp ${here}/*.h)
    file(GLOB headers CONFIGURE_DEPENDS ${here}/*.h)
    file(MAKE_DIRECTORY ${root}/${folder})
    foreach(header IN LISTS headers)
        get_filename_component(file ${header} NAME)
        file(CREATE_LINK ${header} ${root}/${folder}/${file} SYMBOLIC)
    endforeach()

    if(NOT sources MATCHES "\\.cpp")
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE ${root})
        target_link_libraries(${target} INTERFACE ${LAYER_LINKS})
        return()
    endif()
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${root})
    target_link_libraries(${target} PUBLIC ${LAYER_LINKS} PRIVATE quenoria_compiler ${LAYER_PRIVATE_LINKS})
    quenoria_precompile(${target})
endfunction()

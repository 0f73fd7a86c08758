# quillmarker_headers_alone(TARGET HEADERS folder INCLUDES folder... LINK library...)
#
# An object library with one source for each header below the folder. A source includes its header twice and nothing
# else: it compiles when the header names all it needs and is guarded. The glob is for this check alone.
function(quillmarker_headers_alone target)
    cmake_parse_arguments(PARSE_ARGV 1 alone "" "HEADERS" "INCLUDES;LINK")
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${alone_HEADERS}" "${alone_HEADERS}/*.h")
    if(NOT headers)
        message(FATAL_ERROR "no headers below ${alone_HEADERS}")
    endif()

    set(sources)
    foreach(header IN LISTS headers)
        set(source "${CMAKE_CURRENT_BINARY_DIR}/${target}/${header}.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"@header@\"\n#include \"@header@\"\n" @ONLY)
        list(APPEND sources "${source}")
    endforeach()

    add_library(${target} OBJECT ${sources})
    target_compile_features(${target} PRIVATE cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_include_directories(${target} PRIVATE ${alone_INCLUDES})
    target_link_libraries(${target} PRIVATE ${alone_LINK})
    # Only whether it compiles is of interest.
    target_compile_options(${target} PRIVATE -g0 -O0)
endfunction()

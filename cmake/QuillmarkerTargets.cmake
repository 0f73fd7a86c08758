# How our own targets are compiled. Nothing here reaches a target that is not ours, nor whoever uses the package.

option(QUILLMARKER_WARNINGS_AS_ERRORS "Warnings of our own targets are errors" OFF)
option(QUILLMARKER_LTO "Link-time optimisation of the library and the tool" OFF)
option(QUILLMARKER_HARDENED "Let the standard library check its preconditions" OFF)
set(QUILLMARKER_SANITIZERS "" CACHE STRING "Sanitizers of our own targets, as a list: address;undefined")

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    find_program(QUILLMARKER_CCACHE ccache)
    if(QUILLMARKER_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${QUILLMARKER_CCACHE}")
    endif()
endif()

if(QUILLMARKER_LTO)
    include(CheckIPOSupported)
    check_ipo_supported(LANGUAGES CXX)
endif()

add_library(quillmarker_build_options INTERFACE)

set(quillmarkerWarnings
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wcast-qual
    -Wundef -Wextra-semi -Wformat=2
    # A designated initialiser leaves what it does not name to its default on purpose.
    -Wno-missing-field-initializers)
set(quillmarkerGccWarnings -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override)
set(quillmarkerClangWarnings -Wimplicit-fallthrough -Wunreachable-code)
target_compile_options(quillmarker_build_options INTERFACE
    "$<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:${quillmarkerWarnings}>"
    "$<$<CXX_COMPILER_ID:GNU>:${quillmarkerGccWarnings}>"
    "$<$<CXX_COMPILER_ID:Clang,AppleClang>:${quillmarkerClangWarnings}>")

if(QUILLMARKER_WARNINGS_AS_ERRORS)
    target_compile_options(quillmarker_build_options INTERFACE -Werror)
endif()

if(QUILLMARKER_HARDENED)
    target_compile_definitions(quillmarker_build_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(QUILLMARKER_SANITIZERS)
    list(JOIN QUILLMARKER_SANITIZERS "," quillmarkerSanitizers)
    target_compile_options(quillmarker_build_options INTERFACE
        -fsanitize=${quillmarkerSanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quillmarker_build_options INTERFACE -fsanitize=${quillmarkerSanitizers})
endif()

# Gives one of our targets the language level, the warnings and, where a preset asks for them, the sanitizers.
function(quillmarker_own target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quillmarker_build_options>)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
endfunction()

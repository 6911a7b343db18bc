# Flags that every target of the project is compiled with.
add_library(vinora_flags INTERFACE)
target_compile_options(vinora_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow=local -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wduplicated-cond -Wlogical-op -Werror
    $<$<CONFIG:Release>:-Wno-maybe-uninitialized>) # optimised, std::variant makes GCC 12 guess wrong
target_include_directories(vinora_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(VINORA_SANITIZE)
    target_compile_options(vinora_flags INTERFACE
        -fsanitize=${VINORA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        -Wno-maybe-uninitialized) # instrumented code makes GCC guess wrong
    target_link_options(vinora_flags INTERFACE -fsanitize=${VINORA_SANITIZE})
endif()

# Source code says what is text and what is bytes; the tests may be brief.
add_library(vinora_strict INTERFACE)
target_link_libraries(vinora_strict INTERFACE vinora_flags)
target_compile_definitions(vinora_strict INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

function(vinora_precompile target)
    if(VINORA_PCH)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# vinora_subsystem(<folder> LINK <what it may include>...)
#
# One static library per folder of src/. What is not named in LINK does not link, so an include that goes up or
# sideways fails in the build; tools/check-floors says so by name.
function(vinora_subsystem name)
    cmake_parse_arguments(ARG "" "" "LINK;RESOURCES;PCH" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h)
    list(FILTER sources EXCLUDE REGEX "/Main\\.cpp$")
    add_library(${name} STATIC ${sources} ${ARG_RESOURCES})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(${name} PUBLIC vinora_flags ${ARG_LINK} PRIVATE vinora_strict)
    if(ARG_PCH)
        vinora_precompile(${name} ${ARG_PCH})
    endif()
endfunction()

# What every target of this project shares: language level, warnings, sanitizers, precompiled
# headers and Qt's code generators.

include(GenerateExportHeader)

add_library(AXRGuiBuildFlags INTERFACE)
target_compile_features(AXRGuiBuildFlags INTERFACE cxx_std_17)
target_compile_definitions(AXRGuiBuildFlags INTERFACE
    QT_DEPRECATED_WARNINGS QT_NO_CAST_TO_ASCII QT_STRICT_ITERATORS)
target_compile_options(AXRGuiBuildFlags INTERFACE
    -Wall -Wextra -Wshadow -Woverloaded-virtual
    $<$<BOOL:${AXRGUI_WARNINGS_AS_ERRORS}>:-Werror>)
if(AXRGUI_SANITIZE)
    target_compile_options(AXRGuiBuildFlags INTERFACE
        -fsanitize=${AXRGUI_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(AXRGuiBuildFlags INTERFACE -fsanitize=${AXRGUI_SANITIZE})
endif()

# axr_target(<target> [<folder>...]): the shared settings; the folders become include directories.
function(axr_target target)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON AUTORCC ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:AXRGuiBuildFlags>)
    foreach(folder IN LISTS ARGN)
        target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${folder}>)
    endforeach()
endfunction()

# axr_library(<name> [HEADERS ...] [SOURCES ...] [FOLDERS ...]): a library that hosts link, with
# export header, version and alias. HEADERS is also the list of what is installed.
function(axr_library name)
    cmake_parse_arguments(arg "" "" "HEADERS;SOURCES;FOLDERS" ${ARGN})
    add_library(${name} ${arg_SOURCES} ${arg_HEADERS})
    add_library(AXRGui::${name} ALIAS ${name})
    axr_target(${name} ${arg_FOLDERS})
    axr_public(${name} ${name} ${arg_HEADERS})
endfunction()

# axr_public(<library> <compiled> <header>...): export header and install data of <library>, whose
# sources are compiled in the target <compiled>.
function(axr_public library compiled)
    string(TOUPPER ${library} upper)
    generate_export_header(${library}
        BASE_NAME ${library} EXPORT_FILE_NAME "${PROJECT_BINARY_DIR}/include/${library}Export.h")
    foreach(target IN ITEMS ${library} ${compiled})
        target_include_directories(${target} PUBLIC
            $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
            $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/AXRGui>)
        if(NOT BUILD_SHARED_LIBS)
            target_compile_definitions(${target} PUBLIC ${upper}_STATIC_DEFINE)
        endif()
    endforeach()
    set(headers "${PROJECT_BINARY_DIR}/include/${library}Export.h")
    foreach(header IN LISTS ARGN)
        cmake_path(ABSOLUTE_PATH header)
        list(APPEND headers "${header}")
    endforeach()
    set_target_properties(${library} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN" # the libraries are installed side by side
        AXR_HEADERS "${headers}")
    set_property(GLOBAL APPEND PROPERTY AXR_LIBRARIES ${library})
endfunction()

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

# All public headers of the build tree, flat as they are installed; a host that adds the tree sees
# this folder and no other.
set(AXR_PUBLIC_FOLDER "${PROJECT_BINARY_DIR}/include/AXRGui")

# axr_library(<name>): a library that hosts link, with export header, version and alias, and without
# sources yet; the rooms that follow in this folder and below it fill it.
function(axr_library name)
    add_library(${name})
    add_library(AXRGui::${name} ALIAS ${name})
    axr_target(${name})
    axr_public(${name})
    set(AXR_LIBRARY ${name} PARENT_SCOPE)
    set(AXR_COMPILED ${name} PARENT_SCOPE)
endfunction()

# axr_public(<library>...): the export header and the install data of the first; it and the others,
# which compile its sources, see the public headers.
function(axr_public library)
    string(TOUPPER ${library} upper)
    set(export_header "${AXR_PUBLIC_FOLDER}/${library}Export.h")
    generate_export_header(${library} BASE_NAME ${library} EXPORT_FILE_NAME "${export_header}")
    foreach(target IN LISTS library ARGN)
        target_include_directories(${target} PUBLIC
            $<BUILD_INTERFACE:${AXR_PUBLIC_FOLDER}>
            $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/AXRGui>)
        if(NOT BUILD_SHARED_LIBS)
            target_compile_definitions(${target} PUBLIC ${upper}_STATIC_DEFINE)
        endif()
    endforeach()
    set_target_properties(${library} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN" # the libraries are installed side by side
        AXR_HEADERS "${export_header}")
    set_property(GLOBAL APPEND PROPERTY AXR_LIBRARIES ${library})
endfunction()

# axr_room([PUBLIC <class>...] [PRIVATE <class>...] [FORMS <form>...]): the classes of the calling
# folder, each with those of <class>.h, <class>_p.h and <class>.cpp that exist, become part of the
# library of the folder above. <class>.h of a public one is installed. The forms stand in
# src/forms/<name of the calling folder>.
function(axr_room)
    cmake_parse_arguments(arg "" "" "PUBLIC;PRIVATE;FORMS" ${ARGN})
    foreach(class IN LISTS arg_PUBLIC arg_PRIVATE)
        file(GLOB files ${class}.h ${class}_p.h ${class}.cpp)
        if(NOT files)
            message(FATAL_ERROR "no class ${class} in ${CMAKE_CURRENT_SOURCE_DIR}")
        endif()
        target_sources(${AXR_COMPILED} PRIVATE ${files})
    endforeach()
    target_include_directories(${AXR_COMPILED} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME room)
    list(TRANSFORM arg_FORMS REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/src/forms/${room}/\\1.ui")
    set_property(TARGET ${AXR_COMPILED} APPEND PROPERTY AXR_FORMS ${arg_FORMS})
    foreach(class IN LISTS arg_PUBLIC)
        set(header "${CMAKE_CURRENT_SOURCE_DIR}/${class}.h")
        set_property(TARGET ${AXR_LIBRARY} APPEND PROPERTY AXR_HEADERS "${header}")
        file(CREATE_LINK "${header}" "${AXR_PUBLIC_FOLDER}/${class}.h" COPY_ON_ERROR SYMBOLIC)
    endforeach()
endfunction()

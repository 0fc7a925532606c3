# A room is a folder of sources that becomes one static library with the folder's name. It links
# only the rooms that it may know, so that CMake is the wall between them.

add_library(tarvo_opciones INTERFACE)
target_compile_definitions(tarvo_opciones INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
  TARVO_VERSION_MAYOR=${PROJECT_VERSION_MAJOR} TARVO_VERSION_MENOR=${PROJECT_VERSION_MINOR}
  TARVO_VERSION="${PROJECT_VERSION}")
target_compile_options(tarvo_opciones INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
  $<$<BOOL:${TARVO_AVISOS_ERROR}>:-Werror>)
# Some hundred programs are linked, most of them of the same archives.
find_program(MOLD mold)
if(MOLD)
  target_link_options(tarvo_opciones INTERFACE -fuse-ld=mold)
endif()
if(TARVO_SANITIZAR)
  # With clang by the preset: two thirds of the time of gcc, and its warnings besides. Inside the standard library it
  # sees std::stable_sort call what is deprecated.
  target_compile_options(tarvo_opciones INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
    -fno-sanitize-recover=undefined -Wno-deprecated-declarations)
  target_link_options(tarvo_opciones INTERFACE -fsanitize=address,undefined)
endif()
if(TARVO_FUZZ)
  target_compile_options(tarvo_opciones INTERFACE -fsanitize=fuzzer-no-link,address,undefined)
  target_link_options(tarvo_opciones INTERFACE -fsanitize=address,undefined)
endif()

# Headers compiled ahead, once for all that are built alike: rooms, windows, tests.
function(tarvo_cabeceras nombre)
  cmake_parse_arguments(S "" "" "LINKS;OPCIONES;CABECERAS" ${ARGN})
  file(WRITE ${CMAKE_BINARY_DIR}/cabeceras/${nombre}.cpp "")
  add_library(${nombre} OBJECT ${CMAKE_BINARY_DIR}/cabeceras/${nombre}.cpp)
  target_link_libraries(${nombre} PRIVATE tarvo_opciones ${S_LINKS})
  target_compile_options(${nombre} PRIVATE ${S_OPCIONES})
  target_precompile_headers(${nombre} PRIVATE ${S_CABECERAS})
endfunction()
set(comunes <QByteArray> <QString> <QStringList> <QVariant> <algorithm> <expected> <functional> <map> <memory> <optional>
  <span> <utility> <variant> <vector>)
tarvo_cabeceras(cabeceras_sala LINKS Qt6::Core CABECERAS ${comunes})
if(TARVO_PRUEBAS)
  find_package(GTest REQUIRED)
  # Half of the code compiled are tests, whose own lines take no time when they run. Where a sanitizer looks at
  # every access they do. In a file of several, gcc takes each for a header, where a fixture of no name is a fault.
  set(opciones_prueba $<$<NOT:$<BOOL:${TARVO_SANITIZAR}>>:-O0> $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
  tarvo_cabeceras(cabeceras_prueba LINKS Qt6::Core GTest::gtest OPCIONES ${opciones_prueba}
    CABECERAS <gtest/gtest.h> ${comunes})
  function(tarvo_como_prueba nombre)
    target_compile_options(${nombre} PRIVATE ${opciones_prueba})
    target_precompile_headers(${nombre} REUSE_FROM cabeceras_prueba)
  endfunction()
endif()
if(TARVO_VENTANAS)
  tarvo_cabeceras(cabeceras_ventanas LINKS Qt6::Widgets CABECERAS <QtWidgets> ${comunes})
endif()

# The headers that name the texts are made from the table, before anything that uses them is compiled.
set(TARVO_TABLA ${PROJECT_SOURCE_DIR}/datos/textos/es.txt)
set(TARVO_GENERADO ${CMAKE_BINARY_DIR}/generado)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
file(STRINGS ${TARVO_TABLA} salas_con_textos REGEX "^#!" ENCODING UTF-8)
list(TRANSFORM salas_con_textos REPLACE "^#! [a-z_]+ ([^ ]+) .*" "${TARVO_GENERADO}/\\1")
add_custom_command(OUTPUT ${salas_con_textos}
  COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/cabeceras-textos ${TARVO_TABLA} ${TARVO_GENERADO}
  DEPENDS ${TARVO_TABLA} ${PROJECT_SOURCE_DIR}/tools/cabeceras-textos VERBATIM)
add_custom_target(cabeceras_textos DEPENDS ${salas_con_textos})
target_include_directories(tarvo_opciones INTERFACE ${TARVO_GENERADO})

# tarvo_sala(name LINKS rooms-and-libraries... PRIVADO libraries...): the library of the current folder.
function(tarvo_sala nombre)
  cmake_parse_arguments(S "" "" "LINKS;PRIVADO" ${ARGN})
  file(GLOB fuentes CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
    ${CMAKE_CURRENT_SOURCE_DIR}/sqlite/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/sqlite/*.h)
  if(NOT "${fuentes}" MATCHES "[.]cpp")
    add_library(${nombre} INTERFACE)
    target_include_directories(${nombre} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${nombre} INTERFACE tarvo_opciones Qt6::Core ${S_LINKS})
    return()
  endif()
  add_library(${nombre} STATIC ${fuentes})
  target_include_directories(${nombre} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${nombre} PUBLIC tarvo_opciones Qt6::Core ${S_LINKS} PRIVATE ${S_PRIVADO})
  add_dependencies(${nombre} cabeceras_textos)
  set_target_properties(${nombre} PROPERTIES AUTOMOC OFF UNITY_BUILD ${TARVO_UNIDAD} UNITY_BUILD_BATCH_SIZE 6)
  target_precompile_headers(${nombre} REUSE_FROM cabeceras_sala)
  set_property(GLOBAL APPEND PROPERTY TARVO_SALAS ${nombre})
endfunction()

# tarvo_ventanas(name LINKS rooms... PRIVADO libraries...): a room of windows. It may show things: Qt Widgets, forms
# (.ui) and signals of its own. Its headers are compiled ahead once, for all such rooms.
function(tarvo_ventanas nombre)
  cmake_parse_arguments(S "" "" "LINKS;PRIVADO;CARPETAS" ${ARGN})
  file(GLOB fuentes CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
    ${CMAKE_CURRENT_SOURCE_DIR}/*.ui)
  foreach(carpeta IN LISTS S_CARPETAS)
    file(GLOB otras CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${carpeta}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/${carpeta}/*.h
      ${CMAKE_CURRENT_SOURCE_DIR}/${carpeta}/*.ui)
    list(APPEND fuentes ${otras})
  endforeach()
  add_library(${nombre} STATIC ${fuentes})
  target_include_directories(${nombre} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${nombre} PUBLIC tarvo_opciones Qt6::Widgets ${S_LINKS} PRIVATE ${S_PRIVADO})
  add_dependencies(${nombre} cabeceras_textos)
  set_target_properties(${nombre} PROPERTIES AUTOMOC ON AUTOUIC ON UNITY_BUILD ${TARVO_UNIDAD}
    UNITY_BUILD_BATCH_SIZE 8)
  target_precompile_headers(${nombre} REUSE_FROM cabeceras_ventanas)
endfunction()

# The text tables go inside a program.
function(tarvo_con_textos programa)
  qt_add_resources(${programa} textos PREFIX /textos BASE ${PROJECT_SOURCE_DIR}/datos/textos
    FILES ${PROJECT_SOURCE_DIR}/datos/textos/es.txt OPTIONS --no-compress)
endfunction()

# tarvo_prueba(name LINKS ...): one test program of the current folder, its cases known to CTest.
function(tarvo_prueba nombre)
  cmake_parse_arguments(S "" "" "LINKS" ${ARGN})
  file(GLOB fuentes CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_executable(${nombre} ${fuentes})
  target_include_directories(${nombre} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tools)
  target_link_libraries(${nombre} PRIVATE GTest::gtest_main tienda ${S_LINKS})
  target_compile_definitions(${nombre} PRIVATE TARVO_DATOS="${PROJECT_SOURCE_DIR}/datos")
  tarvo_como_prueba(${nombre})
  set_target_properties(${nombre} PROPERTIES UNITY_BUILD ${TARVO_UNIDAD} UNITY_BUILD_BATCH_SIZE 4)
  # The long ones first, or the last of them keeps one core alone: those of windows take pictures.
  set(coste 0)
  if(nombre MATCHES ventanas)
    set(coste 10)
  endif()
  gtest_discover_tests(${nombre} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 COST ${coste})
endfunction()

# cmake -DNM=<nm> -DLIBRARY=<shared library> -DHEADERS=<directory> -P CheckVisibleClasses.cmake
execute_process(COMMAND ${NM} --dynamic --demangle --defined-only ${LIBRARY}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)

file(GLOB headers ${HEADERS}/*.h)
foreach(header IN LISTS headers)
    file(STRINGS ${header} declarations REGEX "^(class|struct) TLM_DESKTOP_UI_EXPORT ")
    foreach(declaration IN LISTS declarations)
        string(REGEX REPLACE "^(class|struct) TLM_DESKTOP_UI_EXPORT ([A-Za-z]+).*" "\\2" class "${declaration}")
        list(APPEND exported ${class})
    endforeach()
endforeach()

string(REGEX MATCHALL "tlm::desktop_ui::((details|internal)::)?[A-Za-z_]+|Ui::[A-Za-z_]+" names "${symbols}")
list(REMOVE_DUPLICATES names)
list(TRANSFORM names REPLACE "^tlm::desktop_ui::(details::)?" "")
list(SORT names)
list(SORT exported)
if(NOT names STREQUAL exported)
    message(FATAL_ERROR "Visible: ${names}\nExported: ${exported}")
endif()
message(STATUS "Visible: ${names}")

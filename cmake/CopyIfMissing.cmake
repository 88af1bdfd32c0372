# cmake -DFROM=file -DTO=file -P CopyIfMissing.cmake
if(NOT EXISTS "${TO}")
    get_filename_component(folder "${TO}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    file(COPY_FILE "${FROM}" "${TO}")
endif()

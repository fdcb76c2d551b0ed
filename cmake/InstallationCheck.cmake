# Part of the installation script: stops before anything is copied when the build is incomplete.
foreach(file IN LISTS built_files)
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR " ${file} is not built, so nothing was installed; run: "
                        "cmake --build ${build_directory} --target installation")
  endif()
endforeach()

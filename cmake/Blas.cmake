# BLAS and LAPACK through their C interfaces, as OpenBLAS and LAPACKE of the system provide them.
find_path(YREX_CBLAS_INCLUDE cblas.h REQUIRED)
find_path(YREX_LAPACKE_INCLUDE lapacke.h REQUIRED)
find_library(YREX_OPENBLAS openblas REQUIRED)
find_library(YREX_LAPACKE lapacke REQUIRED)
add_library(yrexblas INTERFACE)
target_include_directories(yrexblas SYSTEM INTERFACE ${YREX_CBLAS_INCLUDE} ${YREX_LAPACKE_INCLUDE})
target_link_libraries(yrexblas INTERFACE ${YREX_LAPACKE} ${YREX_OPENBLAS})

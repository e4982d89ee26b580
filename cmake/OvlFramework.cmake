# Finds Qt and VTK. OVL_VTK_LIBRARIES names what the library links; ovl_register_vtk_factories()
# makes a target initialise the object factories that it needs, so that hosts write no module line.

# What find_package() says by itself, if it says anything, and then what to do.
function(ovl_miss framework reason)
  message(FATAL_ERROR "${framework} was not found. ${reason}\n"
    "On Debian, scripts/setup build installs all that is needed to build. "
    "If it lies in a folder of its own, name that by -DCMAKE_PREFIX_PATH=FOLDER.")
endfunction()

find_package(Qt5 QUIET COMPONENTS Core Gui Widgets)
if(NOT Qt5_FOUND)
  ovl_miss("Qt 5 (Core, Gui, Widgets)" "${Qt5_NOT_FOUND_MESSAGE}")
endif()

set(ovl_vtk_modules
  ChartsCore CommonColor CommonCore CommonDataModel CommonExecutionModel CommonTransforms
  FiltersGeneral FiltersSources GUISupportQt IOImage ImagingCore InteractionStyle
  RenderingAnnotation RenderingContext2D RenderingContextOpenGL2 RenderingCore RenderingFreeType
  RenderingOpenGL2 ViewsContext2D ViewsCore)
find_package(VTK QUIET COMPONENTS ${ovl_vtk_modules})
if(NOT VTK_FOUND) # the older framework spells its modules with a prefix
  set(ovl_vtk_reason "${VTK_NOT_FOUND_MESSAGE}")
  list(TRANSFORM ovl_vtk_modules PREPEND vtk)
  find_package(VTK QUIET COMPONENTS ${ovl_vtk_modules})
endif()
if(NOT VTK_FOUND)
  ovl_miss("VTK with its support of Qt" "${ovl_vtk_reason}")
endif()
set(OVL_VTK_LIBRARIES ${VTK_LIBRARIES})

function(ovl_register_vtk_factories target)
  if(COMMAND vtk_module_autoinit)
    vtk_module_autoinit(TARGETS ${target} MODULES ${OVL_VTK_LIBRARIES})
  else()
    target_compile_definitions(${target} PRIVATE ${VTK_DEFINITIONS})
    target_include_directories(${target} SYSTEM PUBLIC ${VTK_INCLUDE_DIRS})
  endif()
endfunction()

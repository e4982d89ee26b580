# Finds Qt and VTK. OVL_VTK_LIBRARIES names what the library links; ovl_register_vtk_factories()
# makes a target initialise the object factories that it needs, so that hosts write no module line.
find_package(Qt5 REQUIRED COMPONENTS Core Gui Widgets)

set(ovl_vtk_modules
  ChartsCore CommonColor CommonCore CommonDataModel CommonExecutionModel CommonTransforms
  FiltersGeneral FiltersSources GUISupportQt IOImage ImagingCore InteractionStyle
  RenderingAnnotation RenderingContext2D RenderingContextOpenGL2 RenderingCore RenderingFreeType
  RenderingOpenGL2 ViewsContext2D ViewsCore)
find_package(VTK QUIET COMPONENTS ${ovl_vtk_modules})
if(NOT VTK_FOUND) # the older framework spells its modules with a prefix
  list(TRANSFORM ovl_vtk_modules PREPEND vtk)
  find_package(VTK REQUIRED COMPONENTS ${ovl_vtk_modules})
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

begin 'begin' { begin } (* end *) // if
 end
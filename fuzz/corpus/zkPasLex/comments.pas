{ a } (* b *) // c
{ over
 lines } (*
*) x {
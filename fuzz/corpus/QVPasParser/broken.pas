const a = ((((1))));
procedure F; begin x := (y; z]; if then else until end end;
{$ELSE} type T = class procedure end; {$ENDIF} begin {$ELSE}

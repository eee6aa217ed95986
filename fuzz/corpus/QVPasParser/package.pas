package K;
{$R *.res}
requires vcl, rtl;
contains A in 'a.pas', B;
end.

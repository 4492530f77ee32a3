! Writes reads.txt, the table of tokens that str_value_test.cpp reads:
!   gfortran -std=gnu reads.f90 -o reads && ./reads > reads.txt
! A row: kind, result of a list-directed read, text in quotes, and for what the program refuses on purpose the reason.
! Results: bits in hexadecimal (integers in decimal); "null" read and left alone; "fails"; "beyond" the range.
program reads
  use, intrinsic :: iso_fortran_env, only: real32, real64, int32, int64
  implicit none
  character(512) :: sDigits

  ! Plain numbers.
  call Read_Text('12')
  call Read_Text('-12.5')
  call Read_Text('  +7')
  call Read_Text('.5')
  call Read_Text('5.')
  call Read_Text('-0')
  call Read_Text('+.5e-3')
  call Read_Text('0.1')
  call Read_Text('007')
  ! Exponents.
  call Read_Text('1e+5')
  call Read_Text('1E5')
  call Read_Text('1D3')
  call Read_Text('-2.5d-2')
  call Read_Text('12+50')
  call Read_Text('12-5')
  call Read_Text('1.e5')
  call Read_Text('1e005')
  call Read_Text('0e99999')
  ! Where the token ends.
  call Read_Text('12.5 m')
  call Read_Text('1/2')
  call Read_Text('3,4')
  call Read_Text('7'//achar(9)//'8')
  call Read_Text(achar(9)//'7')
  call Read_Text(',5')
  call Read_Text('  /')
  call Read_Text('12m')
  ! Half-way cases and the ends of the ranges.
  call Read_Text('16777217')
  call Read_Text('16777217.0000001')
  call Read_Text('9007199254740993')
  call Read_Text('2147483647')
  call Read_Text('-2147483648')
  call Read_Text('2147483648')
  call Read_Text('9223372036854775807')
  call Read_Text('-9223372036854775808')
  call Read_Text('9223372036854775808')
  call Read_Text('3.4028235e38')
  call Read_Text('3.4028236e38')
  call Read_Text('1e39')
  call Read_Text('-1e400')
  call Read_Text('1e99999999999999999999')
  call Read_Text('1e-45')
  call Read_Text('1e-46')
  call Read_Text('3e-324')
  call Read_Text('2.4e-324')
  call Read_Text('-1e-400')
  call Read_Text('1e-99999999999999999999')
  call Read_Text('1.00000005960464477539062500000000000000000000000001')
  sDigits = repeat('9', 300)
  call Read_Text(trim(sDigits))
  sDigits = repeat('1', 400)
  call Read_Text(trim(sDigits))
  call Read_Text(trim(sDigits)//'-370')
  sDigits = '0.'//repeat('0', 398)//'1'
  call Read_Text(trim(sDigits))
  call Read_Text(trim(sDigits)//'e+390')
  ! No numbers.
  call Read_Text('')
  call Read_Text('   ')
  call Read_Text('1e')
  call Read_Text('1e+')
  call Read_Text('1e 5')
  call Read_Text('12+')
  call Read_Text('+')
  call Read_Text('-')
  call Read_Text('.')
  call Read_Text('-.')
  call Read_Text('.e5')
  call Read_Text('e5')
  call Read_Text('--5')
  call Read_Text('+-5')
  call Read_Text('1e5.')
  call Read_Text('1e0e0')
  call Read_Text('1.2.3')
  call Read_Text('0x10')
  call Read_Text('1_4')
  call Read_Text('12:30')
  ! What would be read otherwise.
  call Read_Text('2*3', 'a repeat count is a missing value to us')
  call Read_Text('1;2', 'a semicolon is no separator')
  call Read_Text('1q5', 'no number of ours has this exponent')
  call Read_Text('nan', 'a value must be a number')
  call Read_Text('+inf', 'a value must be a number')
  call Read_Text('-Infinity', 'a value must be a number')

contains

  subroutine Read_Text(sText, sReason)
    character(*), intent(in) :: sText
    character(*), intent(in), optional :: sReason
    character(600) :: sField
    integer(int32) :: i4
    integer(int64) :: i8
    real(real32) :: f
    real(real64) :: d
    character(24) :: sBits
    integer :: iStatus
    sField = sText
    i4 = -7
    read (sField, *, iostat=iStatus) i4
    write (sBits, '(I0)') i4
    call Write_Row('i4', iStatus, i4 == -7, .true., sBits, sText, sReason)
    i8 = -7
    read (sField, *, iostat=iStatus) i8
    write (sBits, '(I0)') i8
    call Write_Row('i8', iStatus, i8 == -7, .true., sBits, sText, sReason)
    f = -7.0_real32
    read (sField, *, iostat=iStatus) f
    write (sBits, '(Z8.8)') transfer(f, 0_int32)
    call Write_Row('r4', iStatus, f == -7.0_real32, abs(f) <= huge(f), sBits, sText, sReason)
    d = -7.0_real64
    read (sField, *, iostat=iStatus) d
    write (sBits, '(Z16.16)') transfer(d, 0_int64)
    call Write_Row('r8', iStatus, d == -7.0_real64, abs(d) <= huge(d), sBits, sText, sReason)
  end subroutine

  subroutine Write_Row(sKind, iStatus, bUntouched, bFinite, sBits, sText, sReason)
    character(*), intent(in) :: sKind, sBits, sText
    integer, intent(in) :: iStatus
    logical, intent(in) :: bUntouched, bFinite
    character(*), intent(in), optional :: sReason
    character(24) :: sResult
    character(64) :: sWhy
    sWhy = ''
    if (iStatus /= 0) then
      sResult = 'fails'
    else if (bUntouched) then
      sResult = 'null'
    else if (.not. bFinite) then
      sResult = 'beyond'
    else
      sResult = sBits
    end if
    if (present(sReason) .and. iStatus == 0) sWhy = ' refused: '//sReason
    write (*, '(A)') sKind//' '//trim(sResult)//' "'//sText//'"'//trim(sWhy)
  end subroutine
end program
